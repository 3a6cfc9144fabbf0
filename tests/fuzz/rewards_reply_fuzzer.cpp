// Takes the first byte as the call and the others as its reply: the list of vouchers ('0'), the list after
// one was issued ('1'), the balance ('2'), a page of the history ('3') or the counts of rewards ('4'). The
// other calls have good replies. A failure must be a value, and the screens must show what can be read.
#include "ScriptedReplies.h"
#include "UsedRewards.h"
#include "base/Error.h"
#include "rewards/RewardCountDTO.h"
#include "rewards/gifticon/GifticonRemoteDTO.h"
#include "rewards/point/FetchPointResponse.h"
#include "rewards/point/PointRedemptionHistoryRemoteDTO.h"

#include <chrono>
#include <cstdint>
#include <string_view>

namespace orrelo::test {
namespace {

const ScriptedReplies goodReplies{
    {"/gifticons",
     R"([{"id":"g","tag_text":"","title":"라떼","date":"2026-12-31T00:00:00Z","state":"idle"}])"},
    {"/gifticons/download", "[]"},
    {"/my-point", R"({"amount":5,"description":"내 포인트","point_unit":"P","icon_url":""})"},
    {"/point-redemption-history",
     R"([{"id":1,"title":"출석","description":"","date":"2026-11-02T00:00:00Z","point_amount":10}])"},
    {"/my-rewards", R"({"point":5,"ticket":2,"gifticon":1})"},
};
constexpr const char* calls[] = {"/gifticons", "/gifticons/download", "/my-point",
                                 "/point-redemption-history", "/my-rewards"};

ScriptedReplies replies;

/// The result of `read`; nullopt if it throws one of the errors that a reply may cause.
template <class Read>
auto attempt(Read read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const Error& error) {
    require(error.domain() == "DecodingError" || error.domain() == "MappingError", "only the reply fails");
    return std::nullopt;
  }
}

std::size_t countOf(const std::string& vouchers) {
  const auto rows = GifticonRemoteDTO::decodeList(vouchers);
  for (const auto& row : rows) static_cast<void>(row.map());
  return rows.size();
}

void replay(std::string_view call, std::string_view reply) {
  auto& platform = platformWith(replies);
  replies = goodReplies;
  replies.find(call)->second = reply;
  UsedRewards rewards(platform, {"https://api.example", {}});
  const auto point = attempt([] { return FetchPointResponse::decode(replies["/my-point"]); });
  const auto page =
      attempt([] { return decodePointRedemptionHistories(replies["/point-redemption-history"]); });
  const auto counts = attempt([] { return RewardCountDTO::decode(replies["/my-rewards"]); });
  if (call.starts_with("/gifticons")) {
    rewards.useGifticons(attempt([] { return countOf(replies["/gifticons"]); }));
  } else {
    if (call != "/my-rewards") rewards.useHistory(point && page ? std::optional(page->size()) : std::nullopt);
    if (call != "/point-redemption-history") rewards.useSummary(point.has_value(), counts.has_value());
  }
  platform.loop->runFor(std::chrono::minutes(2));  // longer than any timeout of a screen
  require(platform.loop->pending() == 0, "a screen leaves nothing behind");
  platform.session->requests.clear();
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orrelo::test;
  if (size == 0) return 0;
  const auto& call = calls[(data[0] - unsigned{'0'}) % std::size(calls)];
  replay(call, {reinterpret_cast<const char*>(data) + 1, size - 1});
  return 0;
}

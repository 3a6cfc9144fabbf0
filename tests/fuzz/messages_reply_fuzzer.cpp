// Takes the first byte as the call and the others as its reply: the banners ('0'), the detail of a referral
// campaign's page ('1'), the verification of a friend's code ('2') or its authorization ('3'). The other
// calls have good replies. A failure must be a value, and the screens must show what can be read.
#include "ScriptedReplies.h"
#include "UsedMessages.h"
#include "UsedReferral.h"
#include "base/Error.h"
#include "campaign/CampaignMapper.h"
#include "inappmessage/FetchInAppMessageResponse.h"
#include "referral/ReferralAuthorizationResultDTO.h"
#include "referral/ReferralVerificationResultDTO.h"

#include <chrono>
#include <cstdint>
#include <string_view>

namespace orrelo::test {
namespace {

constexpr auto goodCampaigns = R"([{"id":"r","label":"","name":"","icon":"","page":{"page_type":"referral",
  "page_id":"p","page_detail":{"first_title":"","second_title":"","status_message":"","button_text":"",
  "code":"ABC123","code_description":"","navigate_enable":true,"referral_message":"","notice":[],
  "color":"#112233","highlight_color":"#112233","guide_message":"","input_url":"/verify",
  "validate_url":"/authorize","error_message":"","current_registered":3}}}])";
const ScriptedReplies goodReplies{
    {"/campaigns", goodCampaigns},
    {"/in-app-message/banner", R"({"type":"","items":[]})"},
    {"/verify", R"({"result":true,"message":null})"},
    {"/authorize", R"({"result":true,"message":null,
       "reward_message":{"title":"축하해요","body":"100 P","button_text":"확인"}})"},
};

ScriptedReplies replies;

/// The result of `read`; a default value if it throws the error that a reply may cause.
template <class Read>
auto attempt(Read read) -> decltype(read()) {
  try {
    return read();
  } catch (const Error& error) {
    require(error.domain() == "DecodingError", "only the reply fails");
    return {};
  }
}

void showReferralPage(std::string_view detail) {
  const auto page = R"({"page_type":"referral","page_id":"p","page_detail":)" + std::string(detail) + "}";
  auto campaign = attempt([&] {
    return std::optional(
        CampaignMapper().map({"id", "label", "name", "icon", CampaignDTO::PageResponse::decode(page)}));
  });
  if (!campaign) return;
  if (const auto* const referral = std::get_if<ReferralCampaign>(&campaign->type))
    useReferralPage(*referral, *platformWith(replies).loop);
}

void replayMessages(unsigned call, std::string_view reply) {
  auto& platform = platformWith(replies);
  const NetworkConfig networkConfig{"https://api.example", {}};
  replies = goodReplies;
  if (call == 0) {
    replies["/in-app-message/banner"] = reply;
    useMessages(platform, networkConfig, attempt([&] {
                  return std::optional(FetchInAppMessageResponse::decode(reply).items.size());
                }));
  } else if (call == 1) {
    showReferralPage(reply);
  } else {
    replies[call == 2 ? "/verify" : "/authorize"] = reply;
    useReferralScreen(platform, networkConfig,
                      {.isVerified = attempt(
                           [] { return ReferralVerificationResultDTO::decode(replies["/verify"]).verified; }),
                       .isAuthorized = attempt([] {
                         return ReferralAuthorizationResultDTO::decode(replies["/authorize"]).authorized;
                       })});
  }
  platform.loop->runFor(std::chrono::minutes(2));  // longer than any timeout of a screen
  require(platform.loop->pending() == 0, "a screen leaves nothing behind");
  platform.session->requests.clear();
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  constexpr unsigned callCount = 4;
  const auto call = (data[0] - unsigned{'0'}) % callCount;
  orrelo::test::replayMessages(call, {reinterpret_cast<const char*>(data) + 1, size - 1});
  return 0;
}

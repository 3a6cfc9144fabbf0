// Decodes any bytes as a list, as a campaign and as the page of a participation. A failure must be a
// DecodingError or one of the stops that a page may cause; a campaign that decodes must map and be usable on
// its screen.
#include "UsedPage.h"
#include "base/Error.h"
#include "base/preconditionFailure.h"
#include "campaign/CampaignMapper.h"
#include "support/TestPlatform.h"

#include <chrono>
#include <cstdint>
#include <string_view>

namespace orrelo::test {
namespace {

struct Stop {};

void expectStop(std::string_view message) {
  const bool isExpected = message.starts_with("\"component_order\" names more blocks than ") ||
                          message == "A roulette that is \"done\" has no \"result_index\"" ||
                          message == "A stamp board has no columns";
  require(isExpected, "only the stops of pages are expected");
  throw Stop();
}

// Its network answers every request with 404.
TestPlatform& machine() {
  static TestPlatform platform;
  [[maybe_unused]] static const bool isReady = [] {
    platform.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(404); };
    setPreconditionFailureHandler(&expectStop);
    return true;
  }();
  return platform;
}

void show(CampaignDTO&& dto) {
  const auto& detail = dto.page.pageDetail.kind;
  const bool isRead = !std::holds_alternative<UnknownCampaignDetailDTO>(detail) &&
                      !std::holds_alternative<DeprecatedPageDTO>(detail);
  const auto campaign = CampaignMapper().map(std::move(dto));
  require(!pageName(campaign).empty(), "every kind has a page name");
  require(isRead != std::holds_alternative<UnknownCampaign>(campaign.type), "what was read is known");
  auto& loop = *machine().loop;
  std::visit([&loop](const auto& kind) { use(kind, loop); }, campaign.type);
  loop.runFor(std::chrono::minutes(2));  // longer than any timeout of a page
  require(loop.pending() == 0, "a page leaves nothing behind");
  machine().session->requests.clear();
}

template <class Decode>
void attempt(Decode decode) {
  try {
    decode();
  } catch (const Error& error) {
    require(error.domain() == "DecodingError", "only decoding fails");
  } catch (const Stop&) {
    return;
  }
}

void replay(std::string_view json) {
  attempt([&] {
    CampaignDTO::decodeList(json, [](CampaignDTO&& campaign) {
      show(std::move(campaign));
      return true;
    });
  });
  attempt([&] { show(CampaignDTO::decode(json)); });
  attempt([&] { show({"id", "label", "name", "icon", CampaignDTO::PageResponse::decode(json)}); });
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orrelo::test::machine();
  orrelo::test::replay({reinterpret_cast<const char*>(data), size});
  return 0;
}

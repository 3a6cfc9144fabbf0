// Whatever the service may answer: lists, one campaign, the page of a participation. Only a DecodingError may
// come of it, or a stop that a modular page may ask for, and what decodes must map and draw.
#include "campaign/CampaignMapper.h"
#include "campaign/attendance/CalendarCellViewState.h"
#include "core/base/Error.h"
#include "core/base/preconditionFailure.h"
#include "support/Twins.h"

#include <orrelo/Platform.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orrelo::test {
namespace {

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken promise: %s\n", what);
  std::abort();
}

struct Stop {};

void expectStop(std::string_view message) {
  const bool isExpected = message.starts_with("\"component_order\" names more blocks than ") ||
                          message == "A roulette that is \"done\" has no \"result_index\"";
  require(isExpected, "only a page's two stops are expected");
  throw Stop();
}

void show(CampaignDTO&& dto) {
  const auto kind = dto.page.pageDetail.kind.index();
  const auto campaign = CampaignMapper().map(std::move(dto));
  require(!pageName(campaign).empty(), "every kind has a page name");
  const auto* const modular = std::get_if<ModularCampaign>(&campaign.type);
  require(modular == nullptr || !modular->components.empty(), "a modular page shows something");
  const auto* const attendance = std::get_if<AttendanceCampaign>(&campaign.type);
  require((kind == 0) == (attendance != nullptr), "an attendance page is an attendance campaign");
  if (attendance == nullptr) return;
  const auto cells = cellViewState(attendance->calendar).size();
  const bool hasMonth = attendance->calendar.today != CalendarDate();
  require(cells % 7 == 0 && (hasMonth ? cells >= 35 && cells <= 49 : cells == 7), "whole weeks");
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
  attempt([&] { CampaignDTO::decodeList(json, &show); });
  attempt([&] { show(CampaignDTO::decode(json)); });
  attempt([&] { show({"id", "label", "name", "icon", CampaignDTO::PageResponse::decode(json)}); });
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static const bool isInstalled = [] {
    orrelo::Platform platform;
    platform.clock = std::make_shared<orrelo::test::ManualClock>();
    orrelo::Platform::install(std::move(platform));
    orrelo::setPreconditionFailureHandler(&orrelo::test::expectStop);
    return true;
  }();
  orrelo::test::replay({reinterpret_cast<const char*>(data), size});
  return 0;
}

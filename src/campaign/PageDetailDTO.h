#pragma once

#include "base/Json.h"
#include "campaign/attendance/AttendanceCampaignPageDetailDTO.h"
#include "campaign/deprecated/DeprecatedPageDTO.h"
#include "campaign/optinmarketing/OptInMarketingCampaignPageDetailDTO.h"
#include "campaign/referral/ReferralCampaignPageDTO.h"
#include "campaign/result/CampaignResultPageDTO.h"
#include "campaign/stamp/StampCampaignPageDTO.h"
#include "campaign/unknown/UnknownCampaignDetailDTO.h"
#include "modular/ModularCampaignPageDTO.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace orrelo {

/// What a page shows. Its kind follows from the page's type.
struct PageDetailDTO {
  using Kind = std::variant<AttendanceCampaignPageDetailDTO, ReferralCampaignPageDTO, StampCampaignPageDTO,
                            OptInMarketingCampaignPageDetailDTO, DeprecatedPageDTO, CampaignResultPageDTO,
                            ModularCampaignPageDTO, UnknownCampaignDetailDTO>;
  /// The title where none is read.
  static constexpr auto fixedTitle = "이벤트";

  Kind kind = UnknownCampaignDetailDTO{};
  /// The title of the screen. Optional: a value that is no text makes the page unknown.
  std::optional<std::string> toolbarText;

  /// Reads the detail out of the page's object. Never fails: what cannot be read is unknown. Only the order
  /// of a modular page's blocks may stop the process, see ModularCampaignPageDTO.
  static PageDetailDTO decode(std::string_view pageType, const JsonObject& page);
  /// For the kinds: reads one of the alternatives from the object at `key`. Throws a DecodingError.
  template <class Detail>
  static PageDetailDTO decodeAs(const JsonObject& page, std::string_view key = "page_detail") {
    const auto json = page.object(key);
    return {Detail::decode(json), json.optionalText("toolbar_text")};
  }
  static PageDetailDTO unknown();

  friend bool operator==(const PageDetailDTO&, const PageDetailDTO&) = default;
};

}  // namespace orrelo

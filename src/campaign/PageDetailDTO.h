#pragma once

#include "base/InPlace.h"
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
#include <utility>
#include <variant>

namespace orrelo {

/// The content of a page. Its kind is determined by the page's type.
struct PageDetailDTO {
  using Kind = std::variant<AttendanceCampaignPageDetailDTO, ReferralCampaignPageDTO, StampCampaignPageDTO,
                            OptInMarketingCampaignPageDetailDTO, DeprecatedPageDTO, CampaignResultPageDTO,
                            ModularCampaignPageDTO, UnknownCampaignDetailDTO>;
  /// The title of pages whose title is not decoded.
  static constexpr auto fixedTitle = "이벤트";

  Kind kind = UnknownCampaignDetailDTO{};
  /// The title of the screen. Optional; a value of another type makes the page unknown.
  std::optional<std::string> toolbarText;

  /// Decodes the detail from the page's object. Never throws: a page that cannot be decoded is unknown. Only
  /// an invalid block order of a modular page may stop the process, see ModularCampaignPageDTO.
  static PageDetailDTO decode(std::string_view pageType, const JsonObject& page);
  /// A helper for the kinds: decodes a detail of this type from the object at `key`. Throws a DecodingError.
  template <class Detail>
  static PageDetailDTO decodeAs(const JsonObject& page, std::string_view key = "page_detail") {
    const auto json = page.object(key);
    return {Kind(std::in_place_type<Detail>, InPlace([&] { return Detail::decode(json); })),
            json.optionalText("toolbar_text")};
  }
  static PageDetailDTO unknown();

  friend bool operator==(const PageDetailDTO&, const PageDetailDTO&) = default;
};

}  // namespace orrelo

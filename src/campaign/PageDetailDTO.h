#pragma once

#include "base/Json.h"
#include "campaign/attendance/AttendanceCampaignPageDetailDTO.h"
#include "campaign/optinmarketing/OptInMarketingCampaignPageDetailDTO.h"
#include "campaign/result/CampaignResultPageDTO.h"
#include "campaign/stamp/StampCampaignPageDTO.h"
#include "modular/ModularCampaignPageDTO.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace orrelo {

struct ReferralCampaignPageDTO {
  friend bool operator==(const ReferralCampaignPageDTO&, const ReferralCampaignPageDTO&) = default;
};

/// A page of a kind that is no longer shown; nothing of it is read.
struct DeprecatedPageDTO {
  friend bool operator==(const DeprecatedPageDTO&, const DeprecatedPageDTO&) = default;
};

/// A page that this build cannot read.
struct UnknownCampaignDetailDTO {
  friend bool operator==(const UnknownCampaignDetailDTO&, const UnknownCampaignDetailDTO&) = default;
};

/// What a page shows. Its kind follows from the page's type.
struct PageDetailDTO {
  using Kind = std::variant<AttendanceCampaignPageDetailDTO, ReferralCampaignPageDTO, StampCampaignPageDTO,
                            OptInMarketingCampaignPageDetailDTO, DeprecatedPageDTO, CampaignResultPageDTO,
                            ModularCampaignPageDTO, UnknownCampaignDetailDTO>;

  Kind kind = UnknownCampaignDetailDTO{};
  /// The title of the screen. Optional: a value that is no text makes the page unknown.
  std::optional<std::string> toolbarText;

  /// Reads the detail out of the page's object. Never fails: what cannot be read is unknown. Only the order
  /// of a modular page's blocks may stop the process, see ModularCampaignPageDTO.
  static PageDetailDTO decode(std::string_view pageType, const JsonObject& page);

  friend bool operator==(const PageDetailDTO&, const PageDetailDTO&) = default;
};

}  // namespace orrelo

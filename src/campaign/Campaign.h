#pragma once

#include "base/Error.h"
#include "campaign/attendance/AttendanceCampaign.h"
#include "campaign/deprecated/DeprecatedCampaign.h"
#include "campaign/optinmarketing/OptInMarketingCampaign.h"
#include "campaign/referral/ReferralCampaign.h"
#include "campaign/result/CampaignResult.h"
#include "campaign/stamp/StampCampaign.h"
#include "campaign/unknown/UnknownCampaign.h"
#include "campaign/update/InduceUpdateCampaign.h"
#include "modular/ModularCampaign.h"

#include <orrelo/ORLCampaignType.h>

#include <optional>
#include <string>
#include <variant>

namespace orrelo {

struct Campaign {
  using CampaignType = std::variant<AttendanceCampaign, ReferralCampaign, OptInMarketingCampaign,
                                    StampCampaign, CampaignResult, ModularCampaign, InduceUpdateCampaign,
                                    DeprecatedCampaign, UnknownCampaign>;

  std::string id;
  std::string label;
  std::string name;
  std::string iconUrl;
  /// The title of the screen.
  std::optional<std::string> title;
  CampaignType type = UnknownCampaign{};

  friend bool operator==(const Campaign&, const Campaign&) = default;
};

enum class CampaignTypeError { mappingError };
Error makeError(CampaignTypeError error);

/// The type by which a host can request the campaign. Throws CampaignTypeError mappingError if there is none.
ORLCampaignType publicType(const Campaign& campaign);

/// The page name in the event "ol_visit".
std::string pageName(const Campaign& campaign);

}  // namespace orrelo

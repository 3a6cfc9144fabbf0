#pragma once

#include "base/Error.h"
#include "campaign/CampaignInfo.h"
#include "campaign/attendance/AttendanceCampaign.h"
#include "campaign/optinmarketing/OptInMarketingCampaign.h"
#include "campaign/stamp/StampCampaign.h"
#include "modular/ModularCampaign.h"

#include <orrelo/ORLCampaignType.h>

#include <optional>
#include <string>
#include <variant>

namespace orrelo {

struct ReferralCampaign {
  friend bool operator==(const ReferralCampaign&, const ReferralCampaign&) = default;
};

/// What is shown after a campaign has ended for this user.
struct CampaignResult {
  std::string name;
  std::string label;
  std::string imageUrl;
  std::string body;
  CampaignNotice notice;
  std::optional<CampaignPopUpDialog> popUpDialog;

  friend bool operator==(const CampaignResult&, const CampaignResult&) = default;
};

/// Stands in for a campaign that this build cannot show; never sent by the service.
struct InduceUpdateCampaign {
  std::string appStoreUrl;

  friend bool operator==(const InduceUpdateCampaign&, const InduceUpdateCampaign&) = default;
};

struct DeprecatedCampaign {
  std::string type;

  friend bool operator==(const DeprecatedCampaign&, const DeprecatedCampaign&) = default;
};

struct UnknownCampaign {
  friend bool operator==(const UnknownCampaign&, const UnknownCampaign&) = default;
};

struct Campaign {
  using CampaignType = std::variant<AttendanceCampaign, ReferralCampaign, OptInMarketingCampaign,
                                    StampCampaign, CampaignResult, ModularCampaign, InduceUpdateCampaign,
                                    DeprecatedCampaign, UnknownCampaign>;

  std::string id;
  std::string label;
  std::string name;
  std::string iconUrl;
  /// Of the screen.
  std::optional<std::string> title;
  CampaignType type = UnknownCampaign{};

  friend bool operator==(const Campaign&, const Campaign&) = default;
};

enum class CampaignTypeError { mappingError };
Error makeError(CampaignTypeError error);

/// The kind by which a host can ask for the campaign. Throws CampaignTypeError mappingError where it has
/// none.
ORLCampaignType publicType(const Campaign& campaign);

/// The kind's name in the event "ol_visit".
std::string pageName(const Campaign& campaign);

}  // namespace orrelo

#pragma once

#include "campaign/CampaignInfo.h"

#include <optional>
#include <string>

namespace orrelo {

/// The result shown to this user after a campaign has ended.
struct CampaignResult {
  std::string name;
  std::string label;
  std::string imageUrl;
  std::string body;
  CampaignNotice notice;
  std::optional<CampaignPopUpDialog> popUpDialog;

  friend bool operator==(const CampaignResult&, const CampaignResult&) = default;
};

}  // namespace orrelo

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

// Records shared by several kinds of campaigns.

struct CampaignInfo {
  std::string firstTitle;
  std::string secondTitle;
  std::string guideMessage;
  std::optional<std::string> imageUrl;

  friend bool operator==(const CampaignInfo&, const CampaignInfo&) = default;
};

/// The participation button. `actionUrl` is a path provided by the service, which the kit calls unchanged.
struct CampaignAction {
  std::string title;
  std::string statusMessage;
  std::string actionUrl;
  bool isEnabled = false;

  friend bool operator==(const CampaignAction&, const CampaignAction&) = default;
};

struct CampaignNotice {
  std::vector<std::string> messages;

  friend bool operator==(const CampaignNotice&, const CampaignNotice&) = default;
};

struct CampaignRewardMessage {
  std::string title;
  std::string message;
  std::string buttonText;

  friend bool operator==(const CampaignRewardMessage&, const CampaignRewardMessage&) = default;
};

struct CampaignPopUpDialog {
  std::string title;
  std::string label;
  std::string imageUrl;
  std::string buttonText;

  friend bool operator==(const CampaignPopUpDialog&, const CampaignPopUpDialog&) = default;
};

}  // namespace orrelo

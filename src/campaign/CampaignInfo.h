#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

// What the campaigns of several kinds are made of.

struct CampaignInfo {
  std::string firstTitle;
  std::string secondTitle;
  std::string guideMessage;
  std::optional<std::string> imageUrl;

  friend bool operator==(const CampaignInfo&, const CampaignInfo&) = default;
};

/// The button that takes part. `actionUrl` is a path that the service has made; the kit only calls it.
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

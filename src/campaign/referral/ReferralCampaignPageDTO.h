#pragma once

#include "base/Json.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orrelo {

/// The page of a referral campaign; every field is required.
struct ReferralCampaignPageDTO {
  std::string firstTitle;
  std::string secondTitle;
  std::string statusMessage;
  std::string buttonText;
  std::string code;
  std::string codeDescription;
  bool navigateEnabled = false;
  std::string referralMessage;
  std::vector<std::string> notice;
  /// Hexadecimal, like `highlightColor`.
  std::string color;
  std::string highlightColor;
  std::string guideMessage;
  std::string verificationUrl;
  std::string authorizationUrl;
  std::string errorMessage;
  std::int64_t currentRegistered = 0;

  static ReferralCampaignPageDTO decode(const JsonObject& json);

  friend bool operator==(const ReferralCampaignPageDTO&, const ReferralCampaignPageDTO&) = default;
};

}  // namespace orrelo

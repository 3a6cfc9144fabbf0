#pragma once

#include "base/Json.h"
#include "campaign/RewardMessageDTO.h"

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// A month of daily check-ins. Dates are "yyyy-MM-dd" and colours are hexadecimal; both are kept as strings
/// here.
struct AttendanceCampaignPageDetailDTO {
  std::string firstTitle;
  std::string secondTitle;
  std::string statusMessage;
  std::string today;
  std::vector<std::string> attendedDate;
  std::vector<std::string> highlightDate;
  /// Tolerant, like `imageUrl` and `rewardMessage`: absent if it cannot be decoded.
  std::optional<std::string> highlightIcon;
  /// Flexible: accepts a boolean or a string.
  bool buttonEnable = false;
  std::string buttonText;
  std::string buttonUrl;
  std::vector<std::string> calendarDescription;
  std::string color;
  std::string highlightColor;
  std::string guideMessage;
  std::vector<std::string> notice;
  std::optional<std::string> imageUrl;
  std::optional<RewardMessageDTO> rewardMessage;

  static AttendanceCampaignPageDetailDTO decode(const JsonObject& json);

  friend bool operator==(const AttendanceCampaignPageDetailDTO&,
                         const AttendanceCampaignPageDetailDTO&) = default;
};

}  // namespace orrelo

#pragma once

#include "base/Json.h"
#include "campaign/RewardMessageDTO.h"

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// A month of daily check-ins. Dates are "yyyy-MM-dd" and colours hexadecimal texts; they stay texts here.
struct AttendanceCampaignPageDetailDTO {
  std::string firstTitle;
  std::string secondTitle;
  std::string statusMessage;
  std::string today;
  std::vector<std::string> attendedDate;
  std::vector<std::string> highlightDate;
  /// Tolerant, as `imageUrl` and `rewardMessage`: absent where it cannot be read.
  std::optional<std::string> highlightIcon;
  /// Flexible: a boolean or a text.
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

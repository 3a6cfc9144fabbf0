#pragma once

#include "base/Json.h"

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// Every field is required.
struct PopUpDialogDTO {
  std::string title;
  std::string label;
  std::string imageUrl;
  std::string buttonText;

  static PopUpDialogDTO decode(const JsonObject& json);

  friend bool operator==(const PopUpDialogDTO&, const PopUpDialogDTO&) = default;
};

/// The page shown to this user after a campaign has ended.
struct CampaignResultPageDTO {
  std::string imageUrl;
  std::string body;
  std::vector<std::string> notice;
  /// Tolerant: absent if it cannot be decoded.
  std::optional<PopUpDialogDTO> popUpDialog;

  static CampaignResultPageDTO decode(const JsonObject& json);

  friend bool operator==(const CampaignResultPageDTO&, const CampaignResultPageDTO&) = default;
};

}  // namespace orrelo

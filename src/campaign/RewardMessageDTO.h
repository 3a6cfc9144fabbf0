#pragma once

#include "base/Json.h"

#include <string>

namespace orrelo {

/// The announcement of a reward; every field is required.
struct RewardMessageDTO {
  std::string title;
  std::string body;
  std::string buttonText;

  static RewardMessageDTO decode(const JsonObject& json);

  friend bool operator==(const RewardMessageDTO&, const RewardMessageDTO&) = default;
};

}  // namespace orrelo

#pragma once

#include "campaign/RewardMessageDTO.h"

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

struct ReferralAuthorizationResultDTO {
  bool authorized = false;
  /// The key is required; its value may be null.
  std::optional<std::string> errorMessage;
  /// Required even if the code was refused.
  RewardMessageDTO rewardMessageDTO;

  /// Throws a DecodingError.
  static ReferralAuthorizationResultDTO decode(std::string_view json);
};

}  // namespace orrelo

#pragma once

#include "base/Json.h"

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

struct ReferralVerificationResultDTO {
  bool verified = false;
  /// The key is required; its value may be null.
  std::optional<std::string> errorMessage;

  /// Throws a DecodingError.
  static ReferralVerificationResultDTO decode(std::string_view json);
};

}  // namespace orrelo

#pragma once

#include "base/Json.h"

#include <string>

namespace orrelo {

/// Where the codes of friends are checked: paths below the service's base URL.
struct Referral {
  std::string verificationUrl;
  std::string authorizationUrl;

  /// The stored form, an object with the names of the fields as keys. `decode` throws a DecodingError.
  static Referral decode(const JsonObject& json);
  std::string encode() const;

  friend bool operator==(const Referral&, const Referral&) = default;
};

}  // namespace orrelo

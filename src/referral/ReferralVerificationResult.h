#pragma once

#include <string>
#include <variant>

namespace orrelo {

/// The service's answer to a code that a user has entered.
struct ReferralVerificationResult {
  struct Verified {
    friend bool operator==(const Verified&, const Verified&) = default;
  };
  struct Error {
    /// The service's reason; empty if it gives none.
    std::string message;

    friend bool operator==(const Error&, const Error&) = default;
  };

  std::variant<Verified, Error> value;

  friend bool operator==(const ReferralVerificationResult&, const ReferralVerificationResult&) = default;
};

}  // namespace orrelo

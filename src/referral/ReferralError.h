#pragma once

#include <orrelo/Export.h>

#include <string>
#include <variant>

namespace orrelo {

/// Why a code was not accepted.
struct ReferralError {
  /// The service's reason, as it stands.
  struct NotVerified {
    std::string message;
    friend bool operator==(const NotVerified&, const NotVerified&) = default;
  };
  struct NotAuthorized {
    std::string message;
    friend bool operator==(const NotAuthorized&, const NotAuthorized&) = default;
  };
  enum class Reason { isNotLoggedIn, emptyCode, network, unknown };

  std::variant<NotVerified, NotAuthorized, Reason> value;

  /// The text that the user sees.
  ORRELO_EXPORT std::string toast() const;

  friend bool operator==(const ReferralError&, const ReferralError&) = default;
};

}  // namespace orrelo

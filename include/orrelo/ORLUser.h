#pragma once

#include <orrelo/EventValue.h>
#include <orrelo/Export.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace orrelo {

/// The user's consent to marketing. The raw values are part of the service protocol.
enum class ORLMarketingStatus { unknown = 0, optIn = 1, optOut = 2 };

/// The status with this raw value; nullopt if there is none.
constexpr std::optional<ORLMarketingStatus> marketingStatus(int rawValue) {
  if (rawValue < 0 || rawValue > 2) return std::nullopt;
  return static_cast<ORLMarketingStatus>(rawValue);
}

class ORLUser;

/// Collects the fields of an ORLUser.
class ORRELO_EXPORT ORLUserBuilder {
 public:
  std::optional<std::string> userId;
  ORLMarketingStatus marketingStatus = ORLMarketingStatus::unknown;
  EventValues properties;

  /// Aborts the process if `userId` is absent.
  ORLUser build() const;
};

/// The host's user. Immutable.
class ORRELO_EXPORT ORLUser {
 public:
  using Block = std::function<void(ORLUserBuilder&)>;

  /// Runs `block` on a new builder and returns the result of its `build`.
  static ORLUser user(const Block& block);
  explicit ORLUser(const Block& block);
  /// A user of whom no more than the id is known.
  explicit ORLUser(std::string userId) : ORLUser(std::move(userId), ORLMarketingStatus::unknown) {}
  ORLUser(std::string userId, ORLMarketingStatus marketingStatus, EventValues properties = {})
      : userId_(std::move(userId)), marketingStatus_(marketingStatus), properties_(std::move(properties)) {}

  /// Opaque to the kit; may be empty.
  const std::string& userId() const { return userId_; }
  ORLMarketingStatus marketingStatus() const { return marketingStatus_; }
  /// Sent with the user's profile event; Orrelo::sendEvent states which values are supported.
  const EventValues& properties() const { return properties_; }

 private:
  std::string userId_;
  ORLMarketingStatus marketingStatus_;
  EventValues properties_;
};

}  // namespace orrelo

#pragma once

#include <orrelo/EventValue.h>
#include <orrelo/Export.h>

#include <functional>
#include <optional>
#include <string>

namespace orrelo {

/// Whether the user agreed to marketing. The raw values are the service protocol's.
enum class ORLMarketingStatus { unknown = 0, optIn = 1, optOut = 2 };

/// Nothing for a raw value that no status has.
constexpr std::optional<ORLMarketingStatus> marketingStatus(int rawValue) {
  if (rawValue < 0 || rawValue > 2) return std::nullopt;
  return static_cast<ORLMarketingStatus>(rawValue);
}

class ORLUser;

/// Collects what an ORLUser needs.
class ORRELO_EXPORT ORLUserBuilder {
 public:
  std::optional<std::string> userId;
  ORLMarketingStatus marketingStatus = ORLMarketingStatus::unknown;
  EventValues properties;

  /// Stops the process where `userId` is absent.
  ORLUser build() const;
};

/// The host's user. Immutable.
class ORRELO_EXPORT ORLUser {
 public:
  using Block = std::function<void(ORLUserBuilder&)>;

  /// Runs the block on a new builder and builds.
  static ORLUser user(const Block& block);
  explicit ORLUser(const Block& block);
  ORLUser(std::string userId, ORLMarketingStatus marketingStatus, EventValues properties)
      : userId_(std::move(userId)), marketingStatus_(marketingStatus), properties_(std::move(properties)) {}

  /// Opaque to the kit; any text, the empty one too.
  const std::string& userId() const { return userId_; }
  ORLMarketingStatus marketingStatus() const { return marketingStatus_; }
  /// Sent with the user's profile event, under the rules of Orrelo::sendEvent.
  const EventValues& properties() const { return properties_; }

 private:
  std::string userId_;
  ORLMarketingStatus marketingStatus_;
  EventValues properties_;
};

}  // namespace orrelo

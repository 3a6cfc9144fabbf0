#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <optional>
#include <string>

namespace orrelo {

class ORLConfig;

/// Collects what an ORLConfig needs.
class ORRELO_EXPORT ORLConfigBuilder {
 public:
  std::optional<std::string> appKey;

  /// Stops the process where `appKey` is absent.
  ORLConfig build() const;
};

/// What the kit needs to know at start. Immutable.
///
///     const auto config = ORLConfig::config([](ORLConfigBuilder& builder) { builder.appKey = "my-app"; });
class ORRELO_EXPORT ORLConfig {
 public:
  using Block = std::function<void(ORLConfigBuilder&)>;

  /// Runs the block on a new builder and builds.
  static ORLConfig config(const Block& block);
  explicit ORLConfig(const Block& block);
  /// Any text, the empty one too.
  explicit ORLConfig(std::string appKey) : appKey_(std::move(appKey)) {}
  explicit ORLConfig(const char* appKey) : appKey_(appKey) {}

  /// Names the application at the service.
  const std::string& appKey() const { return appKey_; }

 private:
  std::string appKey_;
};

}  // namespace orrelo

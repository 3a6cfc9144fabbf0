#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <optional>
#include <string>

namespace orrelo {

class ORLConfig;

/// Collects the fields of an ORLConfig.
class ORRELO_EXPORT ORLConfigBuilder {
 public:
  std::optional<std::string> appKey;

  /// Aborts the process if `appKey` is absent.
  ORLConfig build() const;
};

/// The host's configuration of the kit. Immutable.
///
///     const auto config = ORLConfig::config([](ORLConfigBuilder& builder) { builder.appKey = "my-app"; });
class ORRELO_EXPORT ORLConfig {
 public:
  using Block = std::function<void(ORLConfigBuilder&)>;

  /// Runs `block` on a new builder and returns the result of its `build`.
  static ORLConfig config(const Block& block);
  explicit ORLConfig(const Block& block);
  /// Accepts any text, including an empty one.
  explicit ORLConfig(std::string appKey) : appKey_(std::move(appKey)) {}
  explicit ORLConfig(const char* appKey) : appKey_(appKey) {}

  /// Identifies the application to the service.
  const std::string& appKey() const { return appKey_; }

 private:
  std::string appKey_;
};

}  // namespace orrelo

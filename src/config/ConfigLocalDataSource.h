#pragma once

#include "config/Config.h"

#include <orrelo/UserDefaults.h>

#include <memory>
#include <optional>
#include <utility>

namespace orrelo {

/// Stores a copy of the configuration on the device, in the application's suite of user defaults.
class ConfigLocalDataSource {
 public:
  explicit ConfigLocalDataSource(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  /// Returns nullopt if there is no valid copy.
  std::optional<Config> load() const;
  void save(const Config& config) const;

 private:
  std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace orrelo

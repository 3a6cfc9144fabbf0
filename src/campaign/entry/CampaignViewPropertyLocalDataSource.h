#pragma once

#include "campaign/entry/FloatingActionButtonProperty.h"

#include <orrelo/UserDefaults.h>

#include <memory>
#include <optional>
#include <utility>

namespace orrelo {

/// The copy of the floating button's look on the device. Any thread.
class CampaignViewPropertyLocalDataSource {
 public:
  explicit CampaignViewPropertyLocalDataSource(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  /// Returns nullopt if there is no valid copy.
  std::optional<FloatingActionButtonProperty> load() const;
  void save(const FloatingActionButtonProperty& property) const;

 private:
  std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace orrelo

#pragma once

#include "modular/ModularCampaignConfig.h"
#include "modular/UIComponent.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace orrelo {

/// A page put together by the service.
struct ModularCampaign {
  /// From top to bottom.
  std::vector<std::shared_ptr<UIComponent>> components;
  ModularCampaignConfig config;

  /// Whether one of the blocks is of the kind that pages carry under this key.
  bool holds(std::string_view arrayKey) const {
    return std::any_of(components.begin(), components.end(),
                       [arrayKey](const auto& component) { return component->arrayKey() == arrayKey; });
  }

  /// Blocks are compared by identity.
  friend bool operator==(const ModularCampaign&, const ModularCampaign&) = default;
};

}  // namespace orrelo

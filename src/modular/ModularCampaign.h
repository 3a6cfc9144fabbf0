#pragma once

#include "modular/ModularCampaignConfig.h"
#include "modular/UIComponent.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace orrelo {

/// A campaign whose page the service composes of blocks.
struct ModularCampaign {
  /// The blocks from top to bottom.
  std::vector<std::shared_ptr<UIComponent>> components;
  ModularCampaignConfig config;

  /// True if the page has a block of the kind with this array key.
  bool holds(std::string_view arrayKey) const {
    return std::any_of(components.begin(), components.end(),
                       [arrayKey](const auto& component) { return component->arrayKey() == arrayKey; });
  }

  /// Compares blocks by identity.
  friend bool operator==(const ModularCampaign&, const ModularCampaign&) = default;
};

}  // namespace orrelo

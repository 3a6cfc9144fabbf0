#pragma once

#include "base/Json.h"
#include "modular/ModularCampaignConfig.h"
#include "modular/UIComponent.h"

#include <memory>
#include <vector>

namespace orrelo {

/// A page put together by the service, as the service sends it: an array for each kind of block, and the
/// order in which to take from them.
///
/// Only "page_config" and "blank" fail it, and a "toolbar_text" of another type than text. An array that is
/// wrong anywhere counts as absent, and a block that this build does not know leaves nothing but the space
/// after it.
struct ModularCampaignPageDTO {
  /// From top to bottom.
  std::vector<std::shared_ptr<UIComponent>> components;
  ModularCampaignConfig config;

  /// Throws a DecodingError. Stops the process where the order takes more blocks from an array than it has:
  /// the service has broken its word.
  static ModularCampaignPageDTO decode(const JsonObject& json);

  friend bool operator==(const ModularCampaignPageDTO&, const ModularCampaignPageDTO&) = default;
};

}  // namespace orrelo

#pragma once

#include "base/Json.h"
#include "modular/ModularCampaignConfig.h"
#include "modular/UIComponent.h"

#include <memory>
#include <vector>

namespace orrelo {

/// A modular page as the service sends it: an array for each kind of block, and the order in which blocks are
/// taken from the arrays.
///
/// The page is only invalid if "page_config" or "blank" is, or if "toolbar_text" is not a string. An array
/// with an invalid element counts as absent, and of an unsupported block only the blank after it remains.
struct ModularCampaignPageDTO {
  /// The blocks from top to bottom.
  std::vector<std::shared_ptr<UIComponent>> components;
  ModularCampaignConfig config;

  /// Throws a DecodingError. Stops the process if the order takes more blocks from an array than it has,
  /// which violates the service's contract.
  static ModularCampaignPageDTO decode(const JsonObject& json);

  friend bool operator==(const ModularCampaignPageDTO&, const ModularCampaignPageDTO&) = default;
};

}  // namespace orrelo

#pragma once

#include "base/Json.h"
#include "modular/DialogComponent.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

struct Toolbar {
  /// The title of the screen.
  std::string text;

  friend bool operator==(const Toolbar&, const Toolbar&) = default;
};

struct PageLayout {
  /// Optional; a value that is not a toolbar makes the page unknown.
  std::optional<Toolbar> toolbar;
  /// The array keys of the blocks from top to bottom. A repeated key stands for the next block of its array.
  std::vector<std::string> componentOrder;
  /// Tolerant: empty if "dialog" cannot be decoded. The reward messages come first, then the toasts.
  std::vector<std::shared_ptr<DialogComponent>> dialogComponents;

  /// Throws a DecodingError.
  static PageLayout decode(const JsonObject& json);

  /// Compares dialogs by identity.
  friend bool operator==(const PageLayout&, const PageLayout&) = default;
};

struct ModularCampaignConfig {
  PageLayout layout;

  /// Throws a DecodingError.
  static ModularCampaignConfig decode(const JsonObject& json);

  friend bool operator==(const ModularCampaignConfig&, const ModularCampaignConfig&) = default;
};

}  // namespace orrelo

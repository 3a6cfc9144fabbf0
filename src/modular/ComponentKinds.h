#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <memory>
#include <span>
#include <string_view>

namespace orrelo {

/// A kind of block that a page may carry.
struct ComponentKind {
  std::string_view arrayKey;
  /// From an element of the array; throws a DecodingError.
  std::shared_ptr<UIComponent> (*decode)(const JsonObject& json);
};

/// All that this build knows, but for the blank ones, which are plain numbers. A new kind is one line more.
std::span<const ComponentKind> componentKinds();

}  // namespace orrelo

#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <memory>
#include <span>
#include <string_view>

namespace orrelo {

/// A kind of block that a page may contain.
struct ComponentKind {
  std::string_view arrayKey;
  /// Decodes an element of the array; throws a DecodingError.
  std::shared_ptr<UIComponent> (*decode)(const JsonObject& json);
};

/// All supported kinds except the blanks, which are plain numbers. A new kind needs one more line.
std::span<const ComponentKind> componentKinds();

}  // namespace orrelo

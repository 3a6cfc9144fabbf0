#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <cstdint>

namespace orrelo {

/// Room between two blocks, or above the first.
class ORRELO_EXPORT BlankComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "blank";

  explicit BlankComponent(std::int64_t points) : height(points) {}
  /// From an object. In a page's array it is a bare number.
  explicit BlankComponent(const JsonObject& json) : BlankComponent(json.integer("height")) {}

  std::string_view arrayKey() const override { return key; }
  /// A view of its own at the top of a page alone; otherwise spacing, in place of a former blank's.
  void render(StackView& stackView) override;

  /// In points; a negative one takes no room.
  const std::int64_t height;
};

}  // namespace orrelo

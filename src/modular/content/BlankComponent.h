#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <cstdint>

namespace orrelo {

/// The spacing between two blocks or above the first one.
class ORRELO_EXPORT BlankComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "blank";

  explicit BlankComponent(std::int64_t points) : height(points) {}
  /// Decodes an object. In a page's array a blank is a plain number instead.
  explicit BlankComponent(const JsonObject& json) : BlankComponent(json.integer("height")) {}

  std::string_view arrayKey() const override { return key; }
  /// Adds a spacer view if the stack is empty. Otherwise sets the spacing below the last view and replaces
  /// that of an earlier blank.
  void render(StackView& stackView) override;

  /// In points; a negative value counts as 0.
  const std::int64_t height;
};

}  // namespace orrelo

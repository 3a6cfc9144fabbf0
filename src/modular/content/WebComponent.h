#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <string>

namespace orrelo {

/// A web page embedded in the page.
class ORRELO_EXPORT WebComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "web";

  /// Throws a DecodingError: every field is required, and the URL must be one.
  explicit WebComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  const Url url;
  /// "100%" for the width of the stack, or a number of points.
  const std::string width;
  /// In points.
  const std::string height;
};

}  // namespace orrelo

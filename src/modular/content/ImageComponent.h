#pragma once

#include "base/Json.h"
#include "image/ImageView.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// An image with the width of the page; its height follows from the image.
class ORRELO_EXPORT ImageComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "image";
  enum class Style { fit, none };

  /// Throws a DecodingError: both fields are required, and the style must be "fit" or "none".
  explicit ImageComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  const std::string url;
  const Style style;
};

}  // namespace orrelo

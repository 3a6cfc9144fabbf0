#pragma once

#include "base/Json.h"
#include "image/ImageView.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// A picture across the page, as high as it has to be.
class ORRELO_EXPORT ImageComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "image";
  enum class Style { fit, none };

  /// Throws a DecodingError: both fields are required, and a style is one of the two.
  explicit ImageComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  const std::string url;
  const Style style;
};

}  // namespace orrelo

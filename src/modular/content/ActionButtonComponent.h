#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// The participation button above a status line.
class ORRELO_EXPORT ActionButtonComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "action";

  /// Throws a DecodingError: every field is required.
  explicit ActionButtonComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  const std::string text;
  const std::string statusMessage;
  const bool isEnabled;
  const std::string actionUrl;
  const std::string color;
};

}  // namespace orrelo

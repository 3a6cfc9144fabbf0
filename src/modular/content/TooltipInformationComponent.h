#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"
#include "modular/content/TooltipInformationView.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// Two title rows and a line that opens a tooltip.
class ORRELO_EXPORT TooltipInformationComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "information_tooltip";

  /// Throws a DecodingError: every field is required.
  explicit TooltipInformationComponent(const JsonObject& json)
      : firstTitle(json.text("first_title")),
        secondTitle(json.text("second_title")),
        tooltipTitle(json.text("tooltip_title")),
        tooltipMessage(json.text("tooltip_message")) {}

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override {
    stackView.addArrangedSubview(
        std::make_shared<TooltipInformationView>(firstTitle, secondTitle, tooltipTitle, tooltipMessage));
  }

  const std::string firstTitle;
  const std::string secondTitle;
  const std::string tooltipTitle;
  const std::string tooltipMessage;
};

}  // namespace orrelo

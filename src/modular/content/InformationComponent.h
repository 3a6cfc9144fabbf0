#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"
#include "viewkit/InformationView.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// Two title rows and a text.
class ORRELO_EXPORT InformationComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "information";

  /// Throws a DecodingError: every field is required.
  explicit InformationComponent(const JsonObject& json)
      : firstTitle(json.text("first_title")),
        secondTitle(json.text("second_title")),
        guideMessage(json.text("guide_message")) {}

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override {
    stackView.addArrangedSubview(std::make_shared<InformationView>(firstTitle, secondTitle, guideMessage));
  }

  const std::string firstTitle;
  const std::string secondTitle;
  const std::string guideMessage;
};

}  // namespace orrelo

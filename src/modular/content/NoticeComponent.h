#pragma once

#include "base/JsonFields.h"
#include "modular/UIComponent.h"
#include "viewkit/NoticeView.h"

#include <orrelo/Export.h>

#include <string>
#include <vector>

namespace orrelo {

/// A list of notes for the user.
class ORRELO_EXPORT NoticeComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "notice";

  /// Throws a DecodingError.
  explicit NoticeComponent(const JsonObject& json) : items(textsOf(json, "items")) {}

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override {
    stackView.addArrangedSubview(std::make_shared<NoticeView>(items));
  }

  const std::vector<std::string> items;
};

}  // namespace orrelo

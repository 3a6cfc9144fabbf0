#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// A link to another page.
class ORRELO_EXPORT PageEntryComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "page_entry_view";

  /// Throws a DecodingError: every field is required except those that identify the page, which is `unknown`
  /// if they cannot be decoded.
  explicit PageEntryComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  const std::string title;
  const std::string label;
  /// May be empty.
  const std::string iconUrl;
  const Page page;
};

}  // namespace orrelo

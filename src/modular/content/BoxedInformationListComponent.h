#pragma once

#include "base/Color.h"
#include "base/Json.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <string>
#include <vector>

namespace orrelo {

/// The content of one box.
struct BoxedInformation {
  std::string leftText;
  std::string imageUrl;
  std::string rightText;
  /// The colour of the right text.
  Color color;

  /// Throws a DecodingError: every field is required.
  static BoxedInformation decode(const JsonObject& json);

  friend bool operator==(const BoxedInformation&, const BoxedInformation&) = default;
};

/// A list of boxes below a title.
class ORRELO_EXPORT BoxedInformationListComponent final : public UIComponent {
 public:
  static constexpr std::string_view key = "boxed_information_list";

  /// Throws a DecodingError: both fields are required.
  explicit BoxedInformationListComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  const std::string title;
  const std::vector<BoxedInformation> items;
};

}  // namespace orrelo

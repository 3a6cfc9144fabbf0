#pragma once

#include "base/Color.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class ORRELO_EXPORT ActionButtonView final : public View {
 public:
  struct Content {
    std::string text;
    std::string statusMessage;
    bool isEnabled = false;
    std::string actionUrl;
    /// The colour of the enabled button.
    Color color;
  };

  explicit ActionButtonView(Content button) : content(std::move(button)) {}

  static constexpr std::string_view kindName = "ActionButtonView";
  std::string_view kind() const override { return kindName; }

  /// The button's background. A disabled button has a fixed colour on modular pages; other screens use a
  /// paler shade of the button's colour.
  Color fill() const;
  /// The text colour on `fill`.
  Color titleColor() const;

  /// Called when the button is pressed. The press is reported even if the action is dropped.
  void onClick() const;

  const Content content;
  std::weak_ptr<const UIComponent> delegate;
};

}  // namespace orrelo

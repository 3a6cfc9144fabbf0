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
    /// Of the button while it is enabled.
    Color color;
  };
  static constexpr EdgeInsets margins{0.0, 16.0, 0.0, 16.0};
  /// Between the button and the status.
  static constexpr double spacing = 10.0;
  static constexpr double buttonHeight = 56.0;
  /// Plain on composed pages, whatever the colour; other screens dim it.
  static constexpr Color disabledColor{0.945, 0.949, 0.953, 1.0};
  static constexpr Color disabledTitleColor{0.582, 0.588, 0.592, 1.0};
  static constexpr Color statusColor{0.363, 0.369, 0.375, 1.0};

  explicit ActionButtonView(Content button) : content(std::move(button)) {}

  static constexpr std::string_view kindName = "ActionButtonView";
  std::string_view kind() const override { return kindName; }

  /// The button was pressed. It is reported even where the action reaches nobody.
  void onClick() const;

  const Content content;
  std::weak_ptr<const UIComponent> delegate;
};

}  // namespace orrelo

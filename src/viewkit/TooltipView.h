#pragma once

#include "base/Color.h"
#include "ui/Animation.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <array>
#include <string>

namespace orrelo {

/// A bubble of text with a tail, above what it explains.
class ORRELO_EXPORT TooltipView final : public View {
 public:
  enum class TailPosition { top = 0, bottom = 1 };

  struct Look {
    TailPosition tailPosition = TailPosition::top;
    Color tooltipBackgroundColor = {};
    Color textColor{1.0, 1.0, 1.0, 1.0};
    /// Fades by itself once it was shown, as `fade` says.
    bool autoDismiss = false;
    /// A tap anywhere on the screen hides it.
    bool dismissOnTouchOutside = false;
    /// Where the tail's left foot stands, as a share of the width.
    double horizontalBias = 0.5;
  };

  struct State {
    std::string text;
    bool isHidden = true;
    /// Counts the times that it was shown, so that each starts the fading anew.
    int shownCount = 0;

    friend bool operator==(const State&, const State&) = default;
  };

  /// What is to be painted, in points.
  struct Shape {
    /// The bubble: its top, and its size.
    double top = 0.0;
    Size size;
    std::array<Point, 3> tail;
  };

  static constexpr double cornerRadius = 5.0;
  static constexpr double tailHeight = 10.0;
  /// Of the whole view, which the bubble and its tail lie on.
  static constexpr Color backing{0.0, 0.0, 0.0, 0.02};
  /// Black, beneath the bubble and its tail; the radius is the platform's own.
  static constexpr double shadowOpacity = 0.4;
  static constexpr Point shadowOffset{0.0, 4.0};
  static constexpr double shadowRadius = 3.0;
  /// Of the opacity. It stays shown in the end, unseen, and takes no taps.
  static constexpr Animation fade{
      .from = 1.0, .to = 0.0, .duration = std::chrono::seconds(1), .delay = std::chrono::seconds(3)};

  explicit TooltipView(const Look& tooltipLook) : look(tooltipLook) {}

  std::string_view kind() const override { return "TooltipView"; }

  /// Where bubble and tail lie in a view of this size.
  Shape shape(Size size) const;

  void show(const std::string& text);
  /// As `show`, for whoever asks for an explanation, which is reported; nothing where there is none.
  void explain(const std::string& text);
  void hide();
  /// A tap on the tooltip itself.
  void handleTapAction();

  const Look look;
  Followed<State> state;
};

}  // namespace orrelo

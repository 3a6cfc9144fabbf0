#pragma once

#include "base/Color.h"
#include "ui/Animation.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <array>
#include <string>

namespace orrelo {

/// A bubble of text with a tail that points to the explained element.
class ORRELO_EXPORT TooltipView final : public View {
 public:
  enum class TailPosition { top = 0, bottom = 1 };

  struct Look {
    TailPosition tailPosition = TailPosition::top;
    Color tooltipBackgroundColor = {};
    Color textColor{1.0, 1.0, 1.0, 1.0};
    /// The tooltip fades out by itself after it was shown, see `fade`.
    bool autoDismiss = false;
    /// A tap anywhere on the screen hides the tooltip.
    bool dismissOnTouchOutside = false;
    /// The left end of the tail's base, as a share of the width.
    double horizontalBias = 0.5;
  };

  struct State {
    std::string text;
    bool isHidden = true;
    /// The number of times that the tooltip was shown. Each change restarts the fade.
    int shownCount = 0;

    friend bool operator==(const State&, const State&) = default;
  };

  /// The geometry to paint, in points.
  struct Shape {
    /// The top and the size of the bubble.
    double top = 0.0;
    Size size;
    std::array<Position, 3> tail;
  };

  static constexpr double tailHeight = 10.0;
  /// The animation of the opacity. After it the view is transparent and ignores taps but is not marked as
  /// hidden.
  static constexpr Animation fade{
      .from = 1.0, .to = 0.0, .duration = std::chrono::seconds(1), .delay = std::chrono::seconds(3)};

  explicit TooltipView(const Look& tooltipLook) : look(tooltipLook) {}

  std::string_view kind() const override { return "TooltipView"; }

  /// The geometry for a view of this size.
  Shape shape(Size size) const;

  void show(const std::string& text);
  /// Shows the text and reports the event `tooltipShow`. Does nothing if the text is empty.
  void explain(const std::string& text);
  void hide();
  /// Called for a tap on the tooltip itself.
  void handleTapAction();

  const Look look;
  Followed<State> state;
};

}  // namespace orrelo

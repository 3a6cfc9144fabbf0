#pragma once

#include "modular/scratch/ScratchMaskView.h"
#include "viewkit/TextStyle.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

class ScratchLotteryViewDelegate {
 public:
  virtual ~ScratchLotteryViewDelegate() = default;

  /// How much of the mask is gone, from 0 to 1.
  virtual void didScratch(double ratio) = 0;
  /// A card that may not be scratched is being rubbed: once for each report of the movement.
  virtual void handleUnscratchable() = 0;
};

/// A card with a result under a mask.
class ORRELO_EXPORT ScratchLotteryView final : public View, public ScratchMaskViewDelegate {
 public:
  struct Content {
    std::string result;
    Color primaryColor;
    Color secondaryColor;
    /// Whether the result is there to be seen from the start.
    bool isDone = false;
    bool isScratchable = false;
  };
  static constexpr std::string_view kindName = "ScratchLotteryView";
  /// From either edge of the stack.
  static constexpr double inset = 20.0;
  static constexpr double height = 80.0;
  static constexpr double cornerRadius = 4.0;
  static constexpr double borderWidth = 2.0;
  static constexpr Color borderColor{1.0, 1.0, 1.0, 1.0};
  /// Before the result, as large as it fits; the two stand in the middle, one beside the other.
  static constexpr auto resultAsset = "orl_ic_sports";
  /// How far a finger moves, in points, before it is no tap.
  static constexpr double panThreshold = 10.0;
  /// Every so many moves the mask is measured.
  static constexpr int movesPerMeasurement = 10;

  static std::shared_ptr<ScratchLotteryView> create(const Content& content);

  std::string_view kind() const override { return kindName; }

  TextStyle resultStyle() const { return {16.0, TextStyle::Weight::heavy, content.primaryColor}; }
  /// What assistive technology says of the card: the result only once it can be seen.
  std::string accessibilityLabel() const;
  /// Whether pressing it does something.
  bool isPressable() const { return isBlocked() || scratchMaskView->state.value().isUserInteractionEnabled; }

  /// Whether the page must not take over a touch that began on the card, to scroll. True for a card that can
  /// be scratched, since a stroke drifts; from a blocked or an open card the page scrolls.
  bool keepsTouches() const {
    return (content.isScratchable && !content.isDone) || scratchMaskView->isInterceptTouchesInScrollView;
  }

  // What the front reports, in points from the view's top left.
  void touchesBegan(Point point);
  void touchesMoved(Point point);
  /// Also when the touch was taken away.
  void touchesEnded();
  /// A press by key or by assistive technology stands for the whole of a rub.
  void press();

  void hideMask();
  void didScratch(double ratio) override;

  const Content content;
  const std::shared_ptr<ScratchMaskView> scratchMaskView = std::make_shared<ScratchMaskView>();
  std::weak_ptr<ScratchLotteryViewDelegate> delegate;

 private:
  explicit ScratchLotteryView(const Content& content);

  bool isBlocked() const { return !content.isDone && !content.isScratchable; }
  void pan(Point point);
  void reportPan();

  int movedCount_ = 0;
  std::optional<Point> panStart_;
  bool isPanning_ = false;
};

}  // namespace orrelo

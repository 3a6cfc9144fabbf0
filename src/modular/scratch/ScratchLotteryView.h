#pragma once

#include "base/Color.h"
#include "modular/scratch/ScratchMaskView.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

class ScratchLotteryViewDelegate {
 public:
  virtual ~ScratchLotteryViewDelegate() = default;

  /// Reports the erased share of the mask, from 0 to 1.
  virtual void didScratch(double ratio) = 0;
  /// Called when the user scratches a blocked card, once per reported movement.
  virtual void handleUnscratchable() = 0;
};

/// A card whose result is covered by a mask.
class ORRELO_EXPORT ScratchLotteryView final : public View, public ScratchMaskViewDelegate {
 public:
  struct Content {
    std::string result;
    /// The colour of the result.
    Color primaryColor;
    /// The background of the card.
    Color secondaryColor;
    /// True if the result is revealed from the start.
    bool isDone = false;
    bool isScratchable = false;
  };
  static constexpr std::string_view kindName = "ScratchLotteryView";
  /// The distance to both edges of the stack, in points.
  static constexpr double inset = 20.0;
  /// The icon before the result, at the largest size that fits. Icon and result are centered together.
  static constexpr auto resultAsset = "orl_ic_sports";
  /// The distance in points after which a movement is a pan rather than a tap.
  static constexpr double panThreshold = 10.0;
  /// The mask is measured once per this number of moves.
  static constexpr int movesPerMeasurement = 10;

  static std::shared_ptr<ScratchLotteryView> create(const Content& content);

  std::string_view kind() const override { return kindName; }

  /// The label for assistive technology. It contains the result only when that is visible.
  std::string accessibilityLabel() const;
  /// True if a press has an effect.
  bool isPressable() const { return isBlocked() || scratchMaskView->state.value().isUserInteractionEnabled; }

  /// True if the page must not scroll with a touch that began on the card. This is the case for a card that
  /// can be scratched, since strokes drift; touches on a blocked or a revealed card scroll the page.
  bool keepsTouches() const {
    return (content.isScratchable && !content.isDone) || scratchMaskView->isInterceptTouchesInScrollView;
  }

  // Called by the front; points are relative to the view's top left.
  void touchesBegan(Position point);
  void touchesMoved(Position point);
  /// Also called when the touch is cancelled.
  void touchesEnded();
  /// A press by keyboard or assistive technology acts like scratching the whole card.
  void press();

  void hideMask();
  void didScratch(double ratio) override;

  const Content content;
  const std::shared_ptr<ScratchMaskView> scratchMaskView = std::make_shared<ScratchMaskView>();
  std::weak_ptr<ScratchLotteryViewDelegate> delegate;

 private:
  explicit ScratchLotteryView(const Content& content);

  bool isBlocked() const { return !content.isDone && !content.isScratchable; }
  void pan(Position point);
  void reportPan();

  int movedCount_ = 0;
  std::optional<Position> panStart_;
  bool isPanning_ = false;
};

}  // namespace orrelo

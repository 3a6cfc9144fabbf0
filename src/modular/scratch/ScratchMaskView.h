#pragma once

#include "modular/scratch/AlphaMask.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>

namespace orrelo {

class ScratchMaskViewDelegate {
 public:
  virtual ~ScratchMaskViewDelegate() = default;

  /// How much of the mask is gone, from 0 to 1. On the main thread.
  virtual void didScratch(double ratio) = 0;
};

/// A picture that is rubbed off. A front shows the picture through `mask`, and puts together
/// anew what `takeTouched` names.
class ORRELO_EXPORT ScratchMaskView final : public View {
 public:
  struct State {
    bool isHidden = false;
    bool isUserInteractionEnabled = true;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr auto asset = "orl_ic_scratch_mask";
  /// In points, with round ends.
  static constexpr double lineWidth = 35.0;
  /// Pixels to a point; a sharper screen shows no more of it.
  static constexpr double maximumScale = 3.0;
  /// In pixels; a larger view has a coarser mask.
  static constexpr double maximumSide = 4096.0;

  std::string_view kind() const override { return "ScratchMaskView"; }

  /// As large as the view, at the scale of the screen: what is rubbed off stays so when the view gets another
  /// size. Null while the view has none.
  const AlphaMask* mask();
  /// What has changed since it was last taken.
  PixelRect takeTouched();

  /// Where the next line begins.
  void begin(Point point) { lastPoint_ = point; }
  /// Rubs off a line from the last point to this one, in points.
  void erase(Point point);
  /// Counts, on a worker, how much is gone by now, and tells the delegate.
  void measure();

  /// Keeps the page from scrolling under any touch on the card. Deliberately false: nothing in the kit sets
  /// it.
  bool isInterceptTouchesInScrollView = false;
  /// The area of all lines so far, in square points, overlaps counted again. It decides nothing.
  double scratched = 0.0;
  std::weak_ptr<ScratchMaskViewDelegate> delegate;
  Followed<State> state;

 private:
  double scale() const;

  std::optional<Point> lastPoint_;
  AlphaMask mask_;
  PixelRect touched_;
};

}  // namespace orrelo

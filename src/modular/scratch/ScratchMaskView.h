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

  /// Reports the erased share of the mask, from 0 to 1. Called on the main thread.
  virtual void didScratch(double ratio) = 0;
};

/// An image that the user erases by scratching. A front draws the image through `mask` and updates the region
/// of `takeTouched`.
class ORRELO_EXPORT ScratchMaskView final : public View {
 public:
  struct State {
    bool isHidden = false;
    bool isUserInteractionEnabled = true;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr auto asset = "orl_ic_scratch_mask";
  /// The width of the erased line, in points. Its ends are round.
  static constexpr double lineWidth = 35.0;
  /// The maximum number of mask pixels per point, also on screens with a higher scale.
  static constexpr double maximumScale = 3.0;
  /// The maximum side of the mask in pixels; larger views have a coarser mask.
  static constexpr double maximumSide = 4096.0;

  std::string_view kind() const override { return "ScratchMaskView"; }

  /// The mask in the size of the view, at the scale of the screen. It keeps its erased parts when the view is
  /// resized. Null while the view has no size.
  const AlphaMask* mask();
  /// Returns the region that has changed since the last call.
  PixelRect takeTouched();

  /// Sets the start of the next line.
  void begin(Position point) { lastPoint_ = point; }
  /// Erases a line from the last point to this one, in points.
  void erase(Position point);
  /// Counts the erased pixels on a worker and then notifies the delegate.
  void measure();

  /// Keeps the page from scrolling for any touch on the card. The kit deliberately leaves it false.
  bool isInterceptTouchesInScrollView = false;
  /// The total area of all erased lines in square points, with overlaps counted repeatedly. Informational
  /// only.
  double scratched = 0.0;
  std::weak_ptr<ScratchMaskViewDelegate> delegate;
  Followed<State> state;

 private:
  double scale() const;

  std::optional<Position> lastPoint_;
  AlphaMask mask_;
  PixelRect changedRegion_;
};

}  // namespace orrelo

#pragma once

#include "image/ImageView.h"
#include "ui/Geometry.h"

#include <orrelo/Export.h>

#include <string_view>

namespace orrelo {

/// An image that fits its view and can be enlarged and moved. It never becomes smaller than the view, and an
/// enlarged image cannot be moved away from an edge that it reaches.
class ORRELO_EXPORT ZoomImageView final : public ImageView {
 public:
  /// The largest enlargement of the fitting image, unless the image is larger still in its own size.
  static constexpr double maximumScale = 4.0;
  /// One step of a key or a notch of a wheel.
  static constexpr double step = 1.25;
  /// The image's name for assistive technology.
  static constexpr std::string_view accessibilityLabel = "기프티콘 이미지";

  std::string_view kind() const override { return "ZoomImageView"; }

  /// Enlarges the image by a factor, or reduces it by one below 1. The spot of the image at (x, y), in the
  /// view's coordinates, stays in its place if the edges allow it.
  void enlarge(double factor, double x, double y);
  void move(double dx, double dy);
  /// Enlarges by a step for each notch that the wheel is turned away from the user.
  void turnWheel(double notches, double x, double y);
  /// Shows the whole image if it is enlarged, or else enlarges it at (x, y).
  void toggle(double x, double y);
  /// A drag or a pinch begins whose middle is at (x, y). Its middle then moves to other places, and `factor`
  /// tells how far its fingers have spread since the beginning.
  void beginGesture(double x, double y);
  void continueGesture(double factor, double x, double y);

  void setImage(const ImagePtr& image) override;

  /// The image's place in the view; empty without an image.
  Followed<Rect> frame;

 private:
  void layoutSubviews() override { place(); }
  void place();
  Size fittingSize() const;

  double scale_ = 1.0;
  /// From the view's centre to the image's.
  double offsetX_ = 0.0;
  double offsetY_ = 0.0;

  struct Gesture {
    double beginScale = 1.0;
    double x = 0.0;
    double y = 0.0;
  };
  Gesture gesture_;
};

}  // namespace orrelo

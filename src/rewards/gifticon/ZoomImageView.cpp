#include "rewards/gifticon/ZoomImageView.h"

#include <algorithm>
#include <cmath>

namespace orrelo {
namespace {

// Limits an offset so that an image does not leave an edge that it can reach, and stays centred if it is
// smaller than the view.
double limited(double offset, double length, double viewLength) {
  const double room = std::max(0.0, (length - viewLength) / 2.0);
  return std::clamp(offset, -room, room);
}

}  // namespace

void ZoomImageView::enlarge(double factor, double x, double y) {
  const double natural = fittingSize().width > 0.0 ? state.value().image->width() / fittingSize().width : 1.0;
  const double wanted = std::clamp(scale_ * factor, 1.0, std::max(maximumScale, natural));
  if (!std::isfinite(wanted) || !std::isfinite(x) || !std::isfinite(y)) return;
  const double ratio = wanted / scale_;
  const double fromCenterX = x - size().width / 2.0;
  const double fromCenterY = y - size().height / 2.0;
  offsetX_ = fromCenterX + (offsetX_ - fromCenterX) * ratio;
  offsetY_ = fromCenterY + (offsetY_ - fromCenterY) * ratio;
  scale_ = wanted;
  place();
}

void ZoomImageView::move(double dx, double dy) {
  if (!std::isfinite(dx) || !std::isfinite(dy)) return;
  offsetX_ += dx;
  offsetY_ += dy;
  place();
}

void ZoomImageView::turnWheel(double notches, double x, double y) {
  enlarge(std::pow(step, notches), x, y);
}

void ZoomImageView::toggle(double x, double y) {
  constexpr double closer = 2.5;
  enlarge(scale_ > 1.0 ? 1.0 / scale_ : closer, x, y);
}

void ZoomImageView::beginGesture(double x, double y) {
  gesture_ = {scale_, x, y};
}

void ZoomImageView::continueGesture(double factor, double x, double y) {
  move(x - gesture_.x, y - gesture_.y);
  enlarge(gesture_.beginScale * factor / scale_, x, y);
  gesture_.x = x;
  gesture_.y = y;
}

void ZoomImageView::setImage(const ImagePtr& image) {
  ImageView::setImage(image);
  scale_ = 1.0;
  place();
}

void ZoomImageView::place() {
  const auto fitting = fittingSize();
  const double width = fitting.width * scale_;
  const double height = fitting.height * scale_;
  offsetX_ = limited(offsetX_, width, size().width);
  offsetY_ = limited(offsetY_, height, size().height);
  if (width <= 0.0) return frame.set({});
  frame.set(
      {(size().width - width) / 2.0 + offsetX_, (size().height - height) / 2.0 + offsetY_, width, height});
}

Size ZoomImageView::fittingSize() const {
  const auto& image = state.value().image;
  if (!image || image->width() <= 0.0 || image->height() <= 0.0) return {};
  const double fit = std::min(size().width / image->width(), size().height / image->height());
  return {image->width() * fit, image->height() * fit};
}

}  // namespace orrelo

#include "modular/scratch/ScratchMaskView.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>
#include <orrelo/platform/WorkerPool.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orrelo {

double ScratchMaskView::scale() const {
  const double maximumForSize = maximumSide / std::max(size().width, size().height);
  return std::min(std::clamp(Platform::current().application->screenScale(), 1.0, maximumScale),
                  maximumForSize);
}

const AlphaMask* ScratchMaskView::mask() {
  if (!(size().width > 0.0) || !(size().height > 0.0)) return nullptr;
  const auto pixels = [this](double points) {
    return std::max(1, static_cast<int>(std::lround(points * scale())));
  };
  const int width = pixels(size().width);
  const int height = pixels(size().height);
  if (width != mask_.width() || height != mask_.height()) {
    mask_ = mask_.pixels().empty() ? AlphaMask(width, height) : mask_.stretched(width, height);
    changedRegion_ = mask_.bounds();
  }
  return &mask_;
}

PixelRect ScratchMaskView::takeTouched() {
  mask();
  return std::exchange(changedRegion_, {});
}

void ScratchMaskView::erase(Position point) {
  const auto from = std::exchange(lastPoint_, point);
  if (!from || mask() == nullptr) return;
  scratched += std::hypot(point.x - from->x, point.y - from->y) * lineWidth;
  const double factor = scale();
  const auto touched = mask_.eraseLine({from->x * factor, from->y * factor},
                                       {point.x * factor, point.y * factor}, lineWidth * factor);
  changedRegion_ = changedRegion_.united(touched);
}

void ScratchMaskView::measure() {
  if (mask() == nullptr) return;
  const auto& platform = Platform::current();
  const auto weak = std::weak_ptr(std::static_pointer_cast<ScratchMaskView>(shared_from_this()));
  platform.workers->post(
      QualityOfService::userInitiated,
      [weak, loop = platform.mainLoop, snapshot = std::make_shared<const AlphaMask>(mask_)] {
        loop->post([weak, ratio = snapshot->clearedRatio()] {
          const auto self = weak.lock();
          const auto listener = self ? self->delegate.lock() : nullptr;
          if (listener) listener->didScratch(ratio);
        });
      });
}

}  // namespace orrelo

#include "modular/scratch/ScratchLotteryView.h"

#include <cmath>

namespace orrelo {

ScratchLotteryView::ScratchLotteryView(const Content& card) : content(card) {
  accessibilityIdentifier = kindName;
  const bool isHidden = content.isDone;
  scratchMaskView->state.set({isHidden, content.isScratchable && !isHidden});
}

std::shared_ptr<ScratchLotteryView> ScratchLotteryView::create(const Content& content) {
  std::shared_ptr<ScratchLotteryView> view(new ScratchLotteryView(content));
  view->scratchMaskView->delegate = view;
  return view;
}

std::string ScratchLotteryView::accessibilityLabel() const {
  if (scratchMaskView->state.value().isHidden) return "스크래치 복권, 결과: " + content.result;
  return isBlocked() ? "스크래치 복권" : "스크래치 복권, 누르면 결과가 나옵니다";
}

void ScratchLotteryView::touchesBegan(Position point) {
  if (isBlocked()) {
    panStart_ = point;
  } else if (isPressable()) {
    scratchMaskView->begin(point);
  }
}

void ScratchLotteryView::touchesMoved(Position point) {
  if (isBlocked()) return pan(point);
  if (!isPressable()) return;
  ++movedCount_;
  // The line erased by this move is included in the next measurement only.
  if (movedCount_ % movesPerMeasurement == 0) scratchMaskView->measure();
  scratchMaskView->erase(point);
}

void ScratchLotteryView::touchesEnded() {
  if (isPanning_) reportPan();
  panStart_.reset();
  isPanning_ = false;
}

void ScratchLotteryView::press() {
  if (isBlocked()) return reportPan();
  if (isPressable()) didScratch(1.0);
}

void ScratchLotteryView::hideMask() {
  scratchMaskView->state.set({.isHidden = true, .isUserInteractionEnabled = false});
}

void ScratchLotteryView::didScratch(double ratio) {
  if (const auto listener = delegate.lock()) listener->didScratch(ratio);
}

void ScratchLotteryView::pan(Position point) {
  if (!panStart_) return;
  isPanning_ = isPanning_ || std::hypot(point.x - panStart_->x, point.y - panStart_->y) >= panThreshold;
  if (isPanning_) reportPan();
}

void ScratchLotteryView::reportPan() {
  if (const auto listener = delegate.lock()) listener->handleUnscratchable();
}

}  // namespace orrelo

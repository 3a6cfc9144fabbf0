#include "image/gif/GifPlayback.h"

#include "image/gif/GifLoad.h"
#include "image/gif/GifPlaybackManager.h"

#include <orrelo/platform/Application.h>

#include <utility>

namespace orrelo {

GifPlayback& GifPlayback::of(const std::shared_ptr<ImageTarget>& view) {
  if (!view->playback_) view->playback_ = std::make_shared<GifPlayback>(view);
  return *view->playback_;
}

GifPlayback::~GifPlayback() {
  if (isAttached_) manager_->viewIsGone(*this);
  if (haveCache_) cache_->clear();
}

std::int64_t GifPlayback::decodedMegabytes() const {
  return animatedImage_ ? animatedImage_->decodedMegabytes.value_or(0) : 0;
}

void GifPlayback::tell(void (GifPlaybackDelegate::*event)(const GifPlaybackDelegate::Sender&)) {
  const auto listener = delegate.lock();
  const auto view = view_.lock();
  if (listener && view) ((*listener).*event)(view);
}

void GifPlayback::playAnimation(const std::shared_ptr<const AnimatedImage>& image,
                                const std::shared_ptr<GifPlaybackManager>& manager, int loopsLeft) {
  const auto view = view_.lock();
  if (!view) return;
  detach();
  const auto& platform = manager->platform();
  if (image->stepCount.value_or(0) < 1 || !platform.displayLink) return view->setImage(image->firstFrame);
  loopsLeft_ = loopsLeft;
  animatedImage_ = image;
  manager_ = manager;
  tickCount_ = 0;
  stepIndex_ = 0;
  cache_ = std::make_shared<FrameSource>(image, platform.workers);
  haveCache_ = false;
  shownFrame_ = image->firstFrame;
  shownIndex_ = -1;
  const auto play = plays_;
  view->setImage(shownFrame_);
  if (play != plays_) return;
  const bool moves = image->stepFrames.runs().size() > 1;
  isWaiting_ = moves && platform.application && platform.application->prefersReducedMotion();
  if (isWaiting_) return view->setShowsPlayButton(true);
  start(view);
}

void GifPlayback::start(const std::shared_ptr<ImageTarget>& view) {
  manager_->attachView(view);
  playing_ = true;
  tell(&GifPlaybackDelegate::playbackDidStart);
}

void GifPlayback::play() {
  const auto view = view_.lock();
  if (!view || !std::exchange(isWaiting_, false)) return;
  view->setShowsPlayButton(false);
  start(view);
}

void GifPlayback::resume() {
  if (const auto view = view_.lock(); view && playing_ && loopsLeft_ != 0) manager_->attachView(view);
}

void GifPlayback::detach() {
  ++plays_;
  const auto view = view_.lock();
  if (isAttached_ && view) manager_->detachView(view);
  if (std::exchange(isWaiting_, false) && view) view->setShowsPlayButton(false);
  playing_ = false;
  onScreen_ = false;
  refillFrameCache();
  animatedImage_.reset();
  cache_.reset();
}

void GifPlayback::end() {
  detach();
  if (const auto former = std::exchange(load, nullptr)) former->cancel();
  // The completion may begin another load; the caller's own load replaces it.
  if (const auto replaced = std::exchange(load, nullptr)) replaced->stop();
}

void GifPlayback::tick(ImageTarget& view) {
  view.setFrame(shownFrame_);
  if (!isAttached_) return;
  if (playing_) return stepFrame(view);
  if (!view.placement().hasSuperview) manager_->detachView(view_.lock());
}

bool GifPlayback::isDisplayed(const ImageTarget& view) const {
  const auto placement = view.placement();
  return loopsLeft_ != 0 && playing_ && placement.hasSuperview && placement.isOnScreen;
}

void GifPlayback::stepFrame(ImageTarget& view) {
  if (!onScreen_) {
    if (isDisplayed(view)) {
      onScreen_ = true;
      refillFrameCache();
    }
    if (!view.placement().hasSuperview) manager_->detachView(view_.lock());
    return;
  }
  advanceShownFrame();
  const auto play = plays_;
  advanceStep();
  if (play != plays_ || isDisplayed(view)) return;
  onScreen_ = false;
  refillFrameCache();
  cache_->rest();
}

// While the frame of this step is not ready, shows the last one that is, which may be the former.
void GifPlayback::advanceShownFrame() {
  const auto run = animatedImage_->stepFrames.runOf(stepIndex_);
  const int index = animatedImage_->stepFrames.runs()[run].frame;
  if (index == shownIndex_) return;
  auto frame = cache_->frame(index);
  if (!frame || !isAhead(frame->index, index)) return;
  shownFrame_ = std::move(frame->image);
  shownIndex_ = frame->index;
  if (shownIndex_ == index) prepareNextFrame(run);
}

// True if a loop comes from the shown frame to the one with the index before it is past the due one.
bool GifPlayback::isAhead(int index, int dueIndex) const {
  const auto count = static_cast<int>(animatedImage_->frameDecoder->frames().size());
  const auto distanceTo = [&](int frame) { return (frame - shownIndex_ + count) % count; };
  return distanceTo(index) <= distanceTo(dueIndex);
}

void GifPlayback::prepareNextFrame(std::size_t run) {
  const auto& runs = animatedImage_->stepFrames.runs();
  const bool isLast = run + 1 == runs.size();
  const bool isLastLoop = loopsLeft_ == 1;
  if (isLast && isLastLoop) return;
  cache_->prepare(runs[isLast ? 0 : run + 1].frame);
}

void GifPlayback::advanceStep() {
  const int ticksPerStep = animatedImage_->ticksPerStep.value_or(0);
  if (ticksPerStep >= 1) tickCount_ = (tickCount_ + 1) % ticksPerStep;
  if (tickCount_ != 0) return;
  stepIndex_ = (stepIndex_ + 1) % *animatedImage_->stepCount;
  if (stepIndex_ != 0) return;
  if (loopsLeft_ == forever) return tell(&GifPlaybackDelegate::playbackDidLoop);
  const auto play = plays_;
  tell(loopsLeft_ < 2 ? &GifPlaybackDelegate::playbackDidStop : &GifPlaybackDelegate::playbackDidLoop);
  if (play == plays_) --loopsLeft_;
}

// An animation of fewer than five loops is never kept.
void GifPlayback::refillFrameCache() {
  if (!cache_) return;
  const bool repeats = loopsLeft_ == forever || loopsLeft_ >= 5;
  const bool wantsCache = onScreen_ && repeats && manager_->haveCache();
  if (wantsCache == haveCache_) return;
  haveCache_ = wantsCache;
  if (wantsCache) {
    cache_->fill();
  } else {
    cache_->clear();
  }
}

}  // namespace orrelo

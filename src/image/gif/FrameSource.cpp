#include "image/gif/FrameSource.h"

#include <new>
#include <utility>

namespace orrelo {

FrameSource::FrameSource(std::shared_ptr<const AnimatedImage> image, std::shared_ptr<WorkerPool> workers)
    : image_(std::move(image)), workers_(std::move(workers)), canvas_(image_->frameDecoder) {}

ImagePtr FrameSource::known(int index) const {
  if (index == 0) return image_->firstFrame;
  if (ready_ && ready_->index == index) return ready_->image;
  const auto run = image_->stepFrames.runShowing(index);
  return run && !kept_.empty() ? kept_[*run] : nullptr;
}

std::optional<FrameSource::Frame> FrameSource::frame(int index) {
  std::unique_lock lock(mutex_);
  if (auto image = known(index)) return Frame{index, std::move(image)};
  wanted_ = index;
  start(std::move(lock));
  const std::lock_guard again(mutex_);
  return ready_;  // the frame itself if the pool runs its tasks at once
}

void FrameSource::prepare(int index) {
  std::unique_lock lock(mutex_);
  if (wanted_ || known(index)) return;
  wanted_ = index;
  start(std::move(lock));
}

void FrameSource::rest() {
  std::unique_lock lock(mutex_);
  wanted_.reset();
  isResting_ = true;
  start(std::move(lock));
}

void FrameSource::fill() {
  std::unique_lock lock(mutex_);
  kept_.assign(image_->stepFrames.runs().size(), nullptr);
  keptCount_ = 0;
  start(std::move(lock));
}

void FrameSource::clear() {
  std::vector<ImagePtr> dropped;
  {
    const std::lock_guard lock(mutex_);
    dropped.swap(kept_);
    keptCount_ = 0;
  }
  // Returning so much memory to the system takes longer than a tick may.
  workers_->post(QualityOfService::utility, [dropped = std::move(dropped)] {});
}

std::size_t FrameSource::keptCount() const {
  const std::lock_guard lock(mutex_);
  return keptCount_;
}

int FrameSource::decodeCount() const {
  const std::lock_guard lock(mutex_);
  return decodeCount_;
}

void FrameSource::start(std::unique_lock<std::mutex> lock) {
  if (isRunning_) return;
  isRunning_ = true;
  lock.unlock();
  workers_->post(QualityOfService::userInteractive, [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->work();
  });
}

// The frames to keep come after the one that was decoded last, so that the canvas does not go back.
std::optional<int> FrameSource::nextFrame() {
  if (wanted_ && known(*wanted_)) wanted_.reset();
  if (wanted_) return wanted_;
  const auto& runs = image_->stepFrames.runs();
  if (keptCount_ == kept_.size()) return std::nullopt;
  while (kept_[nextRun_ % runs.size()]) ++nextRun_;
  return runs[nextRun_ % runs.size()].frame;
}

void FrameSource::work() {
  std::unique_lock lock(mutex_);
  const auto index = nextFrame();
  const bool isRequested = wanted_.has_value();
  const bool wasResting = std::exchange(isResting_, false);
  if (index) {
    lock.unlock();
    const auto image = decoded(*index);
    lock.lock();
    take(*index, image, isRequested);
  } else if (wasResting) {
    auto dropped = std::exchange(ready_, std::nullopt);
    lock.unlock();
    dropped.reset();
    canvas_.releaseUnused();
    lock.lock();
  }
  isRunning_ = false;
  if (isResting_ || nextFrame()) start(std::move(lock));
}

ImagePtr FrameSource::decoded(int index) {
  if (index == 0) return image_->firstFrame;
  try {
    auto bitmap = canvas_.frame(static_cast<std::size_t>(index));
    if (!bitmap) return emptyImage_;
    bitmap->scale = image_->scale;
    return std::make_shared<const Image>(Image{*std::move(bitmap), nullptr});
  } catch (const std::bad_alloc&) {
    return emptyImage_;
  }
}

void FrameSource::take(int index, const ImagePtr& image, bool isRequested) {
  decodeCount_ = canvas_.decodeCount();
  if (const auto run = image_->stepFrames.runShowing(index)) {
    nextRun_ = *run;
    if (!kept_.empty() && !kept_[*run]) {
      kept_[*run] = image;
      ++keptCount_;
    }
  }
  if (!isRequested || !wanted_) return;  // `rest` has dropped the request meanwhile
  ready_ = Frame{index, image};
  if (wanted_ == index) wanted_.reset();
}

}  // namespace orrelo

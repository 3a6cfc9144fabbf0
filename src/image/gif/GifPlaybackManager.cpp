#include "image/gif/GifPlaybackManager.h"

#include "image/gif/GifPlayback.h"

#include <algorithm>
#include <utility>

namespace orrelo {

std::shared_ptr<GifPlaybackManager> GifPlaybackManager::shared() {
  static auto* const current = new std::pair<const Platform*, std::shared_ptr<GifPlaybackManager>>;
  const auto& platform = Platform::current();
  if (current->first != &platform) {
    *current = {&platform, std::make_shared<GifPlaybackManager>(defaultMemoryLimit, platform)};
  }
  return current->second;
}

GifPlaybackManager::GifPlaybackManager(std::int64_t memoryLimit, const Platform& platform)
    : platform_(platform), memoryLimit_(memoryLimit) {}

void GifPlaybackManager::startTimer() {
  if (timer_ || !platform_.displayLink) return;
  timer_ = platform_.displayLink->start([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->updateImageView();
  });
}

bool GifPlaybackManager::attachView(const std::shared_ptr<ImageTarget>& imageView) {
  auto& playback = GifPlayback::of(imageView);
  const bool isNew = !playback.isAttached();
  if (isNew) {
    recomputeCachePolicy(playback, true);
    displayViews_.push_back(imageView);
    playback.setAttached(true);
  }
  startTimer();
  return isNew;
}

void GifPlaybackManager::detachView(const std::shared_ptr<ImageTarget>& imageView) {
  auto& playback = GifPlayback::of(imageView);
  if (!playback.isAttached()) return;
  playback.setAttached(false);
  std::erase_if(displayViews_, [&](const auto& view) { return view.lock() == imageView; });
  recomputeCachePolicy(playback, false);
}

void GifPlaybackManager::viewIsGone(GifPlayback& playback) {
  std::erase_if(displayViews_, [](const auto& view) { return view.expired(); });
  recomputeCachePolicy(playback, false);
}

void GifPlaybackManager::recomputeCachePolicy(const GifPlayback& playback, bool add) {
  const auto size = playback.decodedMegabytes();
  totalGifSize_ += add ? size : -size;
  haveCache_ = memoryLimit_ >= totalGifSize_;
  for (const auto& weak : displayViews_) {
    if (const auto view = weak.lock()) GifPlayback::of(view).refillFrameCache();
  }
}

void GifPlaybackManager::updateImageView() {
  if (displayViews_.empty()) return timer_.reset();
  // A delegate or a follower of a view may attach and detach views.
  const auto views = displayViews_;
  for (const auto& weak : views) {
    const auto view = weak.lock();
    if (!view) continue;
    auto& playback = GifPlayback::of(view);
    if (playback.isAttached()) playback.tick(*view);
  }
}

}  // namespace orrelo

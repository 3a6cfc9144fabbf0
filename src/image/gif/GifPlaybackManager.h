#pragma once

#include "image/MemoryCache.h"

#include <orrelo/Export.h>
#include <orrelo/Platform.h>
#include <orrelo/platform/DisplayLink.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace orrelo {

class GifPlayback;
class ImageTarget;

/// Drives the animations of all views by the display's ticks, and decides whether their frames are kept.
/// Main thread only.
class ORRELO_EXPORT GifPlaybackManager : public std::enable_shared_from_this<GifPlaybackManager> {
 public:
  /// The limit of the shared manager in megabytes.
  static constexpr std::int64_t defaultMemoryLimit = 50;
  static constexpr std::size_t remoteCacheBudget = std::size_t{32} * 1024 * 1024;

  /// The manager of the installed platform, created at its first use.
  static std::shared_ptr<GifPlaybackManager> shared();

  /// `memoryLimit` is in megabytes of 1,000,000 bytes.
  GifPlaybackManager(std::int64_t memoryLimit, const Platform& platform);

  /// Returns false if the view is attached already. The manager holds it weakly.
  bool attachView(const std::shared_ptr<ImageTarget>& imageView);
  void detachView(const std::shared_ptr<ImageTarget>& imageView);
  /// The tick. First each view shows the frame that its previous tick has chosen.
  void updateImageView();
  /// Called by the state of a view that is being destroyed.
  void viewIsGone(GifPlayback& playback);

  bool hasTimer() const { return timer_ != nullptr; }
  std::size_t displayViewCount() const { return displayViews_.size(); }
  /// The sum of the decoded sizes of all attached views' animations, in megabytes.
  std::int64_t totalGifSize() const { return totalGifSize_; }
  /// True if all of them together are within the limit.
  bool haveCache() const { return haveCache_; }
  /// The files that were loaded, by URL; the one whose last playing began longest ago is dropped first.
  MemoryCache& remoteCache() { return remoteCache_; }
  /// The machine's services, as given to the constructor.
  const Platform& platform() const { return platform_; }

 private:
  void startTimer();
  void recomputeCachePolicy(const GifPlayback& playback, bool add);

  const Platform platform_;
  DisplayLink::Registration timer_;
  std::vector<std::weak_ptr<ImageTarget>> displayViews_;
  std::int64_t totalGifSize_ = 0;
  const std::int64_t memoryLimit_;
  bool haveCache_ = true;
  MemoryCache remoteCache_{remoteCacheBudget};
};

}  // namespace orrelo

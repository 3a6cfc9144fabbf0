#pragma once

#include "image/ImageTarget.h"
#include "image/gif/AnimatedImage.h"
#include "image/gif/FrameSource.h"
#include "image/gif/GifPlaybackDelegate.h"

#include <memory>

namespace orrelo {

class GifLoad;
class GifPlaybackManager;

/// The animation of one view: what it plays and how far it is. Created when the view first needs it, and
/// destroyed with the view. Main thread only.
class GifPlayback {
 public:
  /// Plays without end.
  static constexpr int forever = -1;

  /// The view's, created if it has none.
  static GifPlayback& of(const std::shared_ptr<ImageTarget>& view);

  explicit GifPlayback(std::weak_ptr<ImageTarget> view) : view_(std::move(view)) {}
  GifPlayback(const GifPlayback&) = delete;
  GifPlayback& operator=(const GifPlayback&) = delete;
  ~GifPlayback();

  std::weak_ptr<GifPlaybackDelegate> delegate;

  /// Ends what the view plays, shows the first frame and begins the animation. A still image is only shown,
  /// as is every image if the platform has no display link. With reduced motion an image of several frames
  /// waits for `play`. `loopsLeft` is `forever` or the number of loops.
  void playAnimation(const std::shared_ptr<const AnimatedImage>& image,
                     const std::shared_ptr<GifPlaybackManager>& manager, int loopsLeft);
  /// Begins an animation that waits because of reduced motion.
  void play();
  /// Ends the animation and a load on its way, whose completion is called with `canceled`. The view keeps its
  /// image.
  void end();
  /// Attaches the view again if it was detached, while it played, for want of a superview.
  void resume();

  /// The view's current load. Null after its end.
  std::shared_ptr<GifLoad> load;

  // The manager calls the following functions.
  /// Shows the chosen frame and advances the animation by one tick of the display.
  void tick(ImageTarget& view);
  void refillFrameCache();
  /// 0 if there is no animation.
  std::int64_t decodedMegabytes() const;
  void setAttached(bool isAttached) { isAttached_ = isAttached; }
  bool isAttached() const { return isAttached_; }

  const std::shared_ptr<const AnimatedImage>& animatedImage() const { return animatedImage_; }
  const ImagePtr& shownFrame() const { return shownFrame_; }
  std::int64_t stepIndex() const { return stepIndex_; }
  int tickCount() const { return tickCount_; }
  bool haveCache() const { return haveCache_; }
  int loopsLeft() const { return loopsLeft_; }
  bool onScreen() const { return onScreen_; }
  bool playing() const { return playing_; }
  /// Null if there is no animation.
  const std::shared_ptr<FrameSource>& cache() const { return cache_; }

 private:
  void start(const std::shared_ptr<ImageTarget>& view);
  void detach();
  void stepFrame(ImageTarget& view);
  void advanceShownFrame();
  void prepareNextFrame(std::size_t run);
  bool isAhead(int index, int dueIndex) const;
  void advanceStep();
  bool isDisplayed(const ImageTarget& view) const;
  void tell(void (GifPlaybackDelegate::*event)(const GifPlaybackDelegate::Sender&));

  std::weak_ptr<ImageTarget> view_;
  std::shared_ptr<GifPlaybackManager> manager_;
  bool isAttached_ = false;
  bool isWaiting_ = false;
  /// Counts the calls of `playAnimation` and `end`, which a delegate may make at any event.
  unsigned plays_ = 0;

  std::shared_ptr<const AnimatedImage> animatedImage_;
  std::shared_ptr<FrameSource> cache_;
  ImagePtr shownFrame_;
  /// The index of the frame, or -1 before the first step.
  int shownIndex_ = -1;
  std::int64_t stepIndex_ = 0;
  int tickCount_ = 0;
  bool haveCache_ = false;
  int loopsLeft_ = 0;
  bool onScreen_ = false;
  bool playing_ = false;
};

}  // namespace orrelo

#pragma once

#include "image/gif/AnimatedImage.h"
#include "image/gif/GifCanvas.h"

#include <orrelo/platform/WorkerPool.h>

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace orrelo {

/// Decodes the frames of one playing animation on the worker pool, one at a time, so that a frame is ready
/// before it is due. Its functions never wait for a decoding.
class FrameSource : public std::enable_shared_from_this<FrameSource> {
 public:
  FrameSource(std::shared_ptr<const AnimatedImage> image, std::shared_ptr<WorkerPool> workers);

  struct Frame {
    int index;
    /// An image without size if the frame cannot be decoded.
    ImagePtr image;
  };

  /// The frame if it is ready. Otherwise it is decoded next and replaces an earlier request, and the one that
  /// was decoded last on request is returned; nullopt if there is none.
  std::optional<Frame> frame(int index);
  /// Decodes the frame, which will be asked for next, unless another one is being decoded.
  void prepare(int index);
  /// Drops the request, and the memory that is not needed while no frames are asked for.
  void rest();

  /// Decodes all frames that the steps show, and keeps them.
  void fill();
  /// Releases the frames that `fill` keeps, and ends it.
  void clear();
  /// The number of frames that are kept.
  std::size_t keptCount() const;
  /// The number of frames whose pixels have been decoded.
  int decodeCount() const;

 private:
  ImagePtr known(int index) const;
  std::optional<int> nextFrame();
  void start(std::unique_lock<std::mutex> lock);
  void work();
  ImagePtr decoded(int index);
  void take(int index, const ImagePtr& image, bool isRequested);

  const std::shared_ptr<const AnimatedImage> image_;
  const std::shared_ptr<WorkerPool> workers_;
  const ImagePtr emptyImage_ = std::make_shared<const Image>();
  /// Used by the running task alone.
  GifCanvas canvas_;

  mutable std::mutex mutex_;
  bool isRunning_ = false;
  std::optional<int> wanted_;
  bool isResting_ = false;
  /// The frame that was decoded last on request.
  std::optional<Frame> ready_;
  /// One frame for each run of `stepFrames`, null until it is decoded; empty while no frames are kept.
  std::vector<ImagePtr> kept_;
  std::size_t keptCount_ = 0;
  /// The run at which the search for a frame to keep begins.
  std::size_t nextRun_ = 0;
  int decodeCount_ = 0;
};

}  // namespace orrelo

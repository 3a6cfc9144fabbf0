#pragma once

#include "base/Error.h"

#include <orrelo/Url.h>

#include <memory>

namespace orrelo {

class ImageTarget;

/// Is told how a view's animation is loaded and played. Called on the main thread.
class GifPlaybackDelegate {
 public:
  using Sender = std::shared_ptr<ImageTarget>;

  virtual ~GifPlaybackDelegate() = default;

  virtual void playbackDidStart(const Sender& sender) = 0;
  virtual void playbackDidLoop(const Sender& sender) = 0;
  /// The last loop has ended; the view keeps the last frame.
  virtual void playbackDidStop(const Sender& sender) = 0;
  virtual void downloadDidFinish(const Sender& sender) = 0;
  virtual void downloadDidFail(const Sender& sender, const Url& url, const Error& error) = 0;
};

}  // namespace orrelo

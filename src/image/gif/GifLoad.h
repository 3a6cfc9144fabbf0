#pragma once

#include "image/ImagePipeline.h"
#include "image/ImageTarget.h"
#include "image/gif/AnimatedImage.h"
#include "platform/threads/onMain.h"

#include <orrelo/Export.h>
#include <orrelo/Url.h>
#include <orrelo/platform/URLSession.h>

#include <atomic>
#include <memory>

namespace orrelo {

class GifPlaybackManager;

struct AnimationLoadOptions {
  /// See GifPlayback::playAnimation.
  int loopsLeft = -1;
  bool showsSpinner = true;
  /// See StepGrid::choose.
  float frameKeepRatio = 0.8F;
  /// Called once: with the first frame after the view began to play, with an error, or with `canceled` if
  /// another load has ended this one.
  ImagePipeline::Completion completion = {};
};

/// The loading of one animation into a view. Main thread only.
class GifLoad : public std::enable_shared_from_this<GifLoad> {
 public:
  GifLoad(const std::shared_ptr<ImageTarget>& view, Url url, std::shared_ptr<GifPlaybackManager> manager,
          const AnimationLoadOptions& options);

  /// Returns the transfer; null if the file is in the manager's cache.
  std::shared_ptr<URLSessionTask> begin(URLSession& session);
  /// Stops and completes with `canceled`.
  void cancel();
  /// Cancels the transfer, whose end completes the load, and removes the spinner.
  void stop();

 private:
  using Parsed = Result<std::shared_ptr<const AnimatedImage>>;

  void didFetch(URLSessionResult result);
  void read(const Data& bytes);
  void didRead(const Parsed& parsed);
  void fail(const Error& error);
  /// The view, if this is still its load.
  std::shared_ptr<ImageTarget> view() const;
  /// The same; from now on it is not its load any more.
  std::shared_ptr<ImageTarget> takeView();

  const std::weak_ptr<ImageTarget> view_;
  const Url url_;
  const std::shared_ptr<GifPlaybackManager> manager_;
  const AnimationLoadOptions options_;
  const MainCompletion<Result<ImagePtr>> complete_;
  std::shared_ptr<URLSessionTask> task_;
  bool isFromCache_ = false;
  std::atomic<bool> isCanceled_ = false;
};

/// Loads the file from the manager's cache or the network and plays it in the view, whose current load or
/// animation it ends. Returns the transfer; null if the file is in the cache. Main thread only.
ORRELO_EXPORT std::shared_ptr<URLSessionTask> loadAnimation(
    const std::shared_ptr<ImageTarget>& view, const Url& url,
    const std::shared_ptr<GifPlaybackManager>& manager, URLSession& session,
    const AnimationLoadOptions& options = {});

}  // namespace orrelo

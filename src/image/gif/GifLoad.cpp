#include "image/gif/GifLoad.h"

#include "image/explainPicture.h"
#include "image/gif/GifParseError.h"
#include "image/gif/GifPlayback.h"
#include "image/gif/GifPlaybackManager.h"

#include <orrelo/platform/Application.h>
#include <orrelo/platform/DisplayLink.h>
#include <orrelo/platform/WorkerPool.h>

#include <utility>

namespace orrelo {
namespace {

// Without a display link only the first frame is shown, so that any rate will do.
constexpr int usualRate = 60;

AnimationLoadOptions withoutCompletion(AnimationLoadOptions options) {
  options.completion = nullptr;
  return options;
}

}  // namespace

GifLoad::GifLoad(const std::shared_ptr<ImageTarget>& view, Url url,
                 std::shared_ptr<GifPlaybackManager> manager, const AnimationLoadOptions& options)
    : view_(view),
      url_(std::move(url)),
      manager_(std::move(manager)),
      options_(withoutCompletion(options)),
      complete_(manager_->platform().mainLoop, options.completion) {}

std::shared_ptr<ImageTarget> GifLoad::view() const {
  auto view = view_.lock();
  if (view && GifPlayback::of(view).load.get() != this) view.reset();
  return view;
}

std::shared_ptr<ImageTarget> GifLoad::takeView() {
  const auto target = view();
  if (!target) return nullptr;
  GifPlayback::of(target).load.reset();
  if (options_.showsSpinner) target->setShowsSpinner(false);
  return target;
}

std::shared_ptr<URLSessionTask> GifLoad::begin(URLSession& session) {
  if (const auto bytes = manager_->remoteCache().value(url_.text())) {
    isFromCache_ = true;
    read(bytes);
    return nullptr;
  }
  const auto& mainLoop = manager_->platform().mainLoop;
  auto end = [self = shared_from_this(), mainLoop](URLSessionResult result) mutable {
    mainLoop->post([self = std::move(self), result = std::move(result)]() mutable {
      self->didFetch(std::move(result));
    });
  };
  task_ = session.dataTask({.url = url_, .isTimeoutIdle = true, .maximumReplySize = maximumFileSize}, end);
  if (const auto target = view(); target && options_.showsSpinner) target->setShowsSpinner(true);
  const auto task = task_;
  try {
    task->resume();
  } catch (...) {
    end({Error::fromCurrentException(), {}, {}});
  }
  return task;
}

void GifLoad::stop() {
  if (task_) task_->cancel();
  if (const auto target = view_.lock(); target && options_.showsSpinner) target->setShowsSpinner(false);
}

void GifLoad::cancel() {
  isCanceled_ = true;
  stop();
  complete_(makeError(DownloaderError::canceled));
}

// Bytes that are no GIF are deliberately kept too, so that the URL fails again without a request.
void GifLoad::didFetch(URLSessionResult result) {
  task_.reset();
  if (result.error == makeError(URLError::dataLengthExceedsMaximum) || (!result.error && !result.data)) {
    return fail(makeError(GifParseError::noImages));
  }
  if (result.error) return fail(*result.error);
  const auto bytes = makeData(*std::move(result.data));
  manager_->remoteCache().insert(url_.text(), bytes);
  if (!isCanceled_) read(bytes);
}

void GifLoad::read(const Data& bytes) {
  const auto& platform = manager_->platform();
  const int rate = platform.displayLink ? platform.displayLink->ticksPerSecond() : usualRate;
  platform.workers->post(QualityOfService::userInteractive, [self = shared_from_this(), bytes,
                                                             rate]() mutable {
    const auto& services = self->manager_->platform();
    auto parsed = self->isCanceled_ ? Parsed(makeError(DownloaderError::canceled))
                                    : AnimatedImage::create(bytes, self->options_.frameKeepRatio, rate,
                                                            services.application->screenScale());
    services.mainLoop->post([self = std::move(self), parsed = std::move(parsed)] { self->didRead(parsed); });
  });
}

void GifLoad::didRead(const Parsed& parsed) {
  const auto* const image = std::get_if<std::shared_ptr<const AnimatedImage>>(&parsed);
  if (image == nullptr) return fail(std::get<Error>(parsed));
  if (const auto target = takeView()) {
    auto& playback = GifPlayback::of(target);
    playback.playAnimation(*image, manager_, options_.loopsLeft);
    const auto listener = playback.delegate.lock();
    if (listener && !isFromCache_) listener->downloadDidFinish(target);
  }
  complete_((*image)->firstFrame);
}

void GifLoad::fail(const Error& error) {
  explainPicture(url_, error);
  if (const auto target = takeView()) {
    if (const auto listener = GifPlayback::of(target).delegate.lock()) {
      listener->downloadDidFail(target, url_, error);
    }
  }
  complete_(error);
}

std::shared_ptr<URLSessionTask> loadAnimation(const std::shared_ptr<ImageTarget>& view, const Url& url,
                                              const std::shared_ptr<GifPlaybackManager>& manager,
                                              URLSession& session, const AnimationLoadOptions& options) {
  ImageLoad::end(*view);
  const auto load = std::make_shared<GifLoad>(view, url, manager, options);
  GifPlayback::of(view).load = load;
  return load->begin(session);
}

}  // namespace orrelo

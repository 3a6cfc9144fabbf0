#include "image/ImageTarget.h"

#include "image/explainPicture.h"
#include "image/gif/GifPlayback.h"

#include <utility>

namespace orrelo {
namespace {

// Downsamples to the view's size first, so that the caller's transformer works on the visible pixels.
ImageTransformer transformerFor(const ImageTarget& view, const ImageLoadOptions& options) {
  if (!options.displayOptions.downsamples) return options.imageTransformer;
  const auto bounds = view.boundsSize();
  const auto downsampling = std::make_shared<const DownsamplingImageTransformer>(
      Size{bounds.width * view.scale(), bounds.height * view.scale()});
  return options.imageTransformer ? composed(downsampling, options.imageTransformer) : downsampling;
}

}  // namespace

void ImageTarget::setPlacement(Placement placement) {
  const bool isBack = placement.hasSuperview && !placement_.hasSuperview;
  placement_ = placement;
  if (isBack && playback_) playback_->resume();
}

void ImageTarget::play() {
  if (playback_) playback_->play();
}

// Cancels only once: a completion that starts a new load on each cancellation would otherwise cause an
// endless loop. A load that it starts here is detached from the view.
void ImageLoad::end(ImageTarget& view) {
  if (const auto former = std::exchange(view.downloadTask_, std::nullopt)) former->cancel();
  if (const auto playback = view.playback_) playback->end();
  view.downloadTask_.reset();
  view.currentUrl_.reset();
  view.isLoading_ = false;
  ++view.loadCount_;
}

std::optional<DownloadTask<ImagePtr>> ImageLoad::setImage(const std::shared_ptr<ImageTarget>& view,
                                                          const std::optional<Url>& url,
                                                          const ImageLoadOptions& options) {
  end(*view);
  view->currentUrl_ = url;
  view->setImage(options.placeholder);
  if (!url) return std::nullopt;
  view->isLoading_ = true;
  const auto load = view->loadCount_;
  auto task =
      ImagePipeline::shared()->image(*url, transformerFor(*view, options),
                                     [weak = std::weak_ptr(view), url, load,
                                      completion = options.completion](const Result<ImagePtr>& result) {
                                       const auto* const image = std::get_if<ImagePtr>(&result);
                                       const auto target = weak.lock();
                                       if (target && target->loadCount_ == load) {
                                         target->isLoading_ = false;
                                         target->downloadTask_.reset();
                                       }
                                       if (image != nullptr && target && target->currentUrl_ == url)
                                         target->setImage(*image);
                                       if (image == nullptr) explainPicture(*url, std::get<Error>(result));
                                       if (completion) completion(result);
                                     });
  // The completion may already have run and started another load.
  if (view->isLoading_ && view->loadCount_ == load) view->downloadTask_ = task;
  return task;
}

}  // namespace orrelo

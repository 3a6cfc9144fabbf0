#include "image/ImageTarget.h"

#include <utility>

namespace orrelo {
namespace {

// A view's pixels first, so that the caller's transformer works on what will be seen.
ImageTransformer transformerFor(const ImageTarget& view, const ImageLoadOptions& options) {
  if (!options.displayOptions.downsamples) return options.imageTransformer;
  const auto bounds = view.boundsSize();
  const auto downsampling = std::make_shared<const DownsamplingImageTransformer>(
      Size{bounds.width * view.scale(), bounds.height * view.scale()});
  return options.imageTransformer ? composed(downsampling, options.imageTransformer) : downsampling;
}

}  // namespace

// Cancels once: a completion that loads again when it hears of the end would never let go. What it begins
// goes on without the view.
void ImageLoad::end(ImageTarget& view) {
  if (const auto former = std::exchange(view.downloadTask_, std::nullopt)) former->cancel();
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
                                       if (completion) completion(result);
                                     });
  // A completion that ran already may have begun another load.
  if (view->isLoading_ && view->loadCount_ == load) view->downloadTask_ = task;
  return task;
}

}  // namespace orrelo

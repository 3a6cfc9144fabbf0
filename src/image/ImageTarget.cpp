#include "image/ImageTarget.h"

#include <utility>

namespace orrelo {
namespace {

// A view's pixels first, so that the caller's transformer works on what will be seen.
ImageTransformer transformerFor(const ImageTarget& view, const ImageLoadOptions& options) {
  if (!options.displayOptions.downsamples) return options.imageTransformer;
  const auto bounds = view.boundsSize();
  const auto downsampling = std::make_shared<const DownsamplingImageTransformer>(
      ImageSize{bounds.width * view.scale(), bounds.height * view.scale()});
  return options.imageTransformer ? composed(downsampling, options.imageTransformer) : downsampling;
}

}  // namespace

std::optional<DownloadTask<ImagePtr>> ImageLoad::setImage(const std::shared_ptr<ImageTarget>& view,
                                                          const std::optional<Url>& url,
                                                          const ImageLoadOptions& options) {
  if (const auto former = std::exchange(view->downloadTask_, std::nullopt)) former->cancel();
  view->currentUrl_ = url;
  const auto load = ++view->loadCount_;
  view->setImage(options.placeholder);
  if (!url) return std::nullopt;
  auto task = ImagePipeline::shared()->image(
      *url, transformerFor(*view, options),
      [weak = std::weak_ptr(view), url, completion = options.completion](const Result<ImagePtr>& result) {
        const auto* const image = std::get_if<ImagePtr>(&result);
        const auto target = weak.lock();
        if (image != nullptr && target && target->currentUrl_ == url) target->setImage(*image);
        if (completion) completion(result);
      });
  // A completion that ran already may have begun another load.
  if (view->loadCount_ == load) view->downloadTask_ = task;
  return task;
}

}  // namespace orrelo

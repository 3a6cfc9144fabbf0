#include "image/ImagePipeline.h"

#include "platform/WorkerPool.h"

#include <mutex>
#include <utility>

namespace orrelo {

Error makeError(CacheError) {
  return Error("CacheError", "dataConversion");
}

Error makeError(DownloaderError error) {
  return Error("DownloaderError", error == DownloaderError::canceled ? "canceled" : "dataConversion");
}

Error makeError(ImagePipelineError) {
  return Error("ImagePipelineError", "imageTransformingError");
}

std::shared_ptr<ImagePipeline> ImagePipeline::shared() {
  static auto* const mutex = new std::mutex;
  static auto* const current = new std::pair<const Platform*, std::shared_ptr<ImagePipeline>>;
  const auto& platform = Platform::current();
  const std::lock_guard lock(*mutex);
  if (current->first != &platform) {
    *current = {&platform, std::make_shared<ImagePipeline>("com.tamrenzo.OrreloSDK.MemoryCache", platform)};
  }
  return current->second;
}

ImagePipeline::ImagePipeline(const std::string& cacheName, const Platform& platform)
    : mainLoop_(platform.mainLoop),
      workers_(platform.workers),
      convertible_(std::make_shared<ImageConvertible>(platform)),
      cache_(Cache<ImagePtr>::create(cacheName, convertible_, platform)),
      downloader_(std::make_shared<Downloader<ImagePtr>>(convertible_, platform)) {}

std::optional<DownloadTask<ImagePtr>> ImagePipeline::image(const Url& url,
                                                           const ImageTransformer& imageTransformer,
                                                           Completion completion) {
  const WrappedKey key(imageTransformer ? url.text() + imageTransformer->identifier() : url.text());
  const auto isCached = cache_->isCached(key);
  if (std::holds_alternative<bool>(isCached) && std::get<bool>(isCached)) {
    // A failed read is the answer; that nothing is downloaded then is deliberate.
    cache_->value(key, [loop = mainLoop_,
                        completion = std::move(completion)](const Result<CacheResult<ImagePtr>>& result) {
      const auto* const found = std::get_if<CacheResult<ImagePtr>>(&result);
      auto answer = found != nullptr ? Result<ImagePtr>(found->value) : std::get<Error>(result);
      onMain(*loop, [completion, answer = std::move(answer)] { completion(answer); });
    });
    return std::nullopt;
  }
  return downloader_->fetch(url, [self = shared_from_this(), imageTransformer, key,
                                  completion = std::move(completion)](const Result<ImagePtr>& result) {
    const auto* const image = std::get_if<ImagePtr>(&result);
    if (image != nullptr && imageTransformer) {
      return self->transform(*image, imageTransformer, key, completion);
    }
    if (image != nullptr) self->keep(key, *image);
    onMain(*self->mainLoop_, [completion, result] { completion(result); });
  });
}

void ImagePipeline::keep(const WrappedKey& key, const ImagePtr& image) {
  auto data = convertible_->data(image);
  // Those who shared the download share one write, too.
  if (data && cache_->memoryCache().value(key) != data) cache_->store(std::move(data), key);
}

void ImagePipeline::transform(const ImagePtr& image, const ImageTransformer& imageTransformer,
                              const WrappedKey& key, Completion completion) {
  workers_->post(QualityOfService::userInteractive, [self = shared_from_this(), image, imageTransformer, key,
                                                     completion = std::move(completion)] {
    const auto transformed = imageTransformer->transform(image);
    if (transformed) self->keep(key, transformed);
    Result<ImagePtr> result = makeError(ImagePipelineError::imageTransformingError);
    if (transformed) result = transformed;
    onMain(*self->mainLoop_, [completion, result = std::move(result)] { completion(result); });
  });
}

}  // namespace orrelo

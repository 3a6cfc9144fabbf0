#include "image/ImagePipeline.h"

#include <orrelo/platform/WorkerPool.h>

#include <mutex>
#include <utility>

namespace orrelo {

Error makeError(ImagePipelineError) {
  return Error("ImagePipelineError", "imageTransformingError");
}

namespace {

struct SharedPipeline {
  std::mutex mutex;
  const Platform* platform = nullptr;
  std::shared_ptr<ImagePipeline> pipeline;
};

SharedPipeline& sharedPipeline() {
  static auto* const shared = new SharedPipeline;
  return *shared;
}

}  // namespace

std::shared_ptr<ImagePipeline> ImagePipeline::shared() {
  auto& current = sharedPipeline();
  const auto& platform = Platform::current();
  const std::lock_guard lock(current.mutex);
  if (current.platform != &platform) {
    current.pipeline = std::make_shared<ImagePipeline>("com.tamrenzo.OrreloSDK.MemoryCache", platform);
    current.platform = &platform;
  }
  return current.pipeline;
}

std::size_t ImagePipeline::sharedMemoryUse() {
  auto& current = sharedPipeline();
  const std::lock_guard lock(current.mutex);
  return current.pipeline ? current.pipeline->cache().memoryCache().used() : 0;
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
  const MainCompletion complete(mainLoop_, std::move(completion));
  if (const auto file = cache_->memoryCache().value(key)) {
    if (auto kept = convertible_->kept(file)) {
      complete(std::move(kept));
      return std::nullopt;
    }
  }
  const auto isCached = cache_->isCached(key);
  if (std::holds_alternative<bool>(isCached) && std::get<bool>(isCached)) {
    // A failed read completes with its error. It deliberately does not fall back to a download.
    cache_->value(key, [complete](const Result<CacheResult<ImagePtr>>& result) {
      const auto* const found = std::get_if<CacheResult<ImagePtr>>(&result);
      complete(found != nullptr ? Result<ImagePtr>(found->value) : std::get<Error>(result));
    });
    return std::nullopt;
  }
  return downloader_->fetch(
      url, [self = shared_from_this(), imageTransformer, key, complete](const Result<ImagePtr>& result) {
        const auto* const image = std::get_if<ImagePtr>(&result);
        if (image == nullptr) return complete(result);
        if (imageTransformer) return self->transform(*image, imageTransformer, key, complete);
        complete(self->storeInCache(key, *image));
      });
}

ImagePtr ImagePipeline::storeInCache(const WrappedKey& key, const ImagePtr& image) {
  auto whole = convertible_->withFile(image);
  // Requests that shared the download also share the write to the cache.
  const auto& file = whole->encoded;
  if (file && cache_->memoryCache().value(key) != file) cache_->store(file, key);
  return whole;
}

void ImagePipeline::transform(const ImagePtr& image, const ImageTransformer& imageTransformer,
                              const WrappedKey& key, MainCompletion completion) {
  {
    const std::lock_guard lock(mutex_);
    auto& waiting = transforming_[key];
    waiting.push_back(std::move(completion));
    if (waiting.size() > 1) return;
  }
  workers_->post(QualityOfService::userInteractive,
                 [self = shared_from_this(), image, imageTransformer, key] {
                   const auto result = self->transformed(image, *imageTransformer, key);
                   std::vector<MainCompletion> waiting;
                   {
                     const std::lock_guard lock(self->mutex_);
                     waiting = std::move(self->transforming_.extract(key).mapped());
                   }
                   for (const auto& complete : waiting) complete(result);
                 });
}

Result<ImagePtr> ImagePipeline::transformed(const ImagePtr& image, const ImageTransforming& imageTransformer,
                                            const WrappedKey& key) {
  try {
    if (const auto result = imageTransformer.transform(image)) return storeInCache(key, result);
  } catch (...) {  // counts as a failed transformation
  }
  return makeError(ImagePipelineError::imageTransformingError);
}

}  // namespace orrelo

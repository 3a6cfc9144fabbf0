#pragma once

#include "image/Cache.h"
#include "image/Downloader.h"
#include "image/Image.h"
#include "image/ImageTransforming.h"

#include <orrelo/Platform.h>
#include <orrelo/Url.h>

#include <mutex>
#include <unordered_map>
#include <vector>

namespace orrelo {

/// The transformation gave nothing.
enum class ImagePipelineError { imageTransformingError };
Error makeError(ImagePipelineError error);

/// Images by URL: from the cache, else from the network, then transformed, once for all who ask meanwhile.
/// Any thread; completions run on the main thread, before the call returns where that can be.
class ImagePipeline : public std::enable_shared_from_this<ImagePipeline> {
 public:
  using Completion = std::function<void(const Result<ImagePtr>&)>;

  /// The one of the installed platform, made at its first use.
  static std::shared_ptr<ImagePipeline> shared();

  ImagePipeline(const std::string& cacheName, const Platform& platform);

  /// The task is for what is on its way from the network alone; a transformation that has begun is not ended
  /// by it.
  std::optional<DownloadTask<ImagePtr>> image(const Url& url, const ImageTransformer& imageTransformer,
                                              Completion completion);

  Cache<ImagePtr>& cache() { return *cache_; }

 private:
  using MainCompletion = orrelo::MainCompletion<Result<ImagePtr>>;

  ImagePtr kept(const WrappedKey& key, const ImagePtr& image);
  void transform(const ImagePtr& image, const ImageTransformer& imageTransformer, const WrappedKey& key,
                 MainCompletion completion);
  Result<ImagePtr> transformed(const ImagePtr& image, const ImageTransforming& imageTransformer,
                               const WrappedKey& key);

  std::shared_ptr<MainLoop> mainLoop_;
  std::shared_ptr<WorkerPool> workers_;
  std::shared_ptr<ImageConvertible> convertible_;
  std::shared_ptr<Cache<ImagePtr>> cache_;
  std::shared_ptr<Downloader<ImagePtr>> downloader_;

  std::mutex mutex_;
  /// Who waits for a transformation that has begun.
  std::unordered_map<WrappedKey, std::vector<MainCompletion>> transforming_;
};

}  // namespace orrelo

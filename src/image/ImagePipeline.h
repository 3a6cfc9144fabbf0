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

/// The transformation failed.
enum class ImagePipelineError { imageTransformingError };
Error makeError(ImagePipelineError error);

/// Loads images by URL from the cache or the network, and transforms them; concurrent requests share the
/// work. Completions run on the main thread, before the call returns if possible. Any thread.
class ImagePipeline : public std::enable_shared_from_this<ImagePipeline> {
 public:
  using Completion = std::function<void(const Result<ImagePtr>&)>;

  /// The pipeline of the installed platform, created at its first use.
  static std::shared_ptr<ImagePipeline> shared();
  /// The bytes that the shared pipeline keeps in memory; 0 before its first use.
  static std::size_t sharedMemoryUse();

  ImagePipeline(const std::string& cacheName, const Platform& platform);

  /// Returns a task only if the image is downloaded. Cancelling it does not stop a running transformation.
  std::optional<DownloadTask<ImagePtr>> image(const Url& url, const ImageTransformer& imageTransformer,
                                              Completion completion);

  Cache<ImagePtr>& cache() { return *cache_; }

 private:
  using MainCompletion = orrelo::MainCompletion<Result<ImagePtr>>;

  ImagePtr storeInCache(const WrappedKey& key, const ImagePtr& image);
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
  /// The completions that wait for a running transformation.
  std::unordered_map<WrappedKey, std::vector<MainCompletion>> transforming_;
};

}  // namespace orrelo

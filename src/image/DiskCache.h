#pragma once

#include "image/Data.h"
#include "image/WrappedKey.h"
#include "platform/threads/SerialQueue.h"

#include <orrelo/Platform.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orrelo {

/// Why a file of the cache gave nothing.
enum class ImagePipelineInputStreamError { uninitializedInputStream, emptyFile };
Error makeError(ImagePipelineInputStreamError error, std::optional<std::string> message = {});

/// Bytes in files, one folder a cache. All work is done in order on a queue of its own, and completes there:
/// a read that is asked for after a write sees it.
class DiskCache {
 public:
  using Completion = std::function<void(std::optional<Error>)>;

  /// Two days. Nothing reads it yet: the whole folder goes with every trip to the background, and this is for
  /// a sweep by age. Deliberate.
  static constexpr double maxCacheAgeSeconds = 172800.0;

  DiskCache(const std::string& name, const Platform& platform);

  const std::string& cacheName() const { return cacheName_; }

  /// An error for what is larger than `maximumFileSize`: it could not be read again.
  void insert(Data data, const WrappedKey& key, Completion completion = {});
  /// What `known` gives by then, else the file. `uninitializedInputStream` for one that is not there, is no
  /// plain file, is larger than `maximumFileSize` or cannot be read.
  void value(const WrappedKey& key, std::function<Data()> known,
             std::function<void(Result<Data>)> completion) const;
  void clear(Completion completion = {});
  /// Does what the queue still has to do, here; waits at most `timeout` for what runs elsewhere by now.
  void finish(std::chrono::milliseconds timeout) { diskQueue_->finish(timeout); }
  /// Whether there is a file now, whatever the queue still has to do. A file that another process has written
  /// since this one listed the folder does not count: it is fetched and written once more.
  Result<bool> contains(const WrappedKey& key) const;

 private:
  class Folder;

  /// Made where it is missing; throws what is in the way.
  std::filesystem::path directory() const;
  void run(std::function<void(const DiskCache&)> work, Completion completion) const;

  std::string cacheName_;
  std::shared_ptr<Directories> directories_;
  std::shared_ptr<SerialQueue> diskQueue_;
  std::shared_ptr<Folder> folder_;
};

}  // namespace orrelo

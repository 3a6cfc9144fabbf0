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

/// The reasons for which a file of the cache could not be read.
enum class ImagePipelineInputStreamError { uninitializedInputStream, emptyFile };
Error makeError(ImagePipelineInputStreamError error, std::optional<std::string> message = {});

/// Stores bytes in files, with one folder per cache. All operations run and complete on the cache's own
/// queue, in order, so that a read sees all earlier writes.
class DiskCache {
 public:
  using Completion = std::function<void(std::optional<Error>)>;

  /// Two days. Deliberately unused: it is meant for a removal of old files, but the whole folder is cleared
  /// whenever the application enters the background.
  static constexpr double maxCacheAgeSeconds = 172800.0;

  DiskCache(const std::string& name, const Platform& platform);

  const std::string& cacheName() const { return cacheName_; }

  /// Fails if the data exceeds `maximumFileSize`, since it could not be read again.
  void insert(Data data, const WrappedKey& key, Completion completion = {});
  /// Completes with the result of `known`, which is called when the operation runs, or with the file's bytes
  /// if that is null. Fails with `uninitializedInputStream` if the file is missing, is not a regular file,
  /// exceeds `maximumFileSize` or cannot be read, and with `emptyFile` if it is empty.
  void value(const WrappedKey& key, std::function<Data()> known,
             std::function<void(Result<Data>)> completion) const;
  void clear(Completion completion = {});
  /// Runs the queued operations on the calling thread; see SerialQueue::finish.
  void finish(std::chrono::milliseconds timeout) { diskQueue_->finish(timeout); }
  /// True if the key's file exists now, regardless of queued operations. Ignores a file that another process
  /// has written since this process listed the folder; that file is downloaded and written again.
  Result<bool> contains(const WrappedKey& key) const;

 private:
  class Folder;

  /// The cache's folder, created if missing. Throws a FileError if it cannot be created.
  std::filesystem::path directory() const;
  void run(std::function<void(const DiskCache&)> work, Completion completion) const;

  std::string cacheName_;
  std::shared_ptr<Directories> directories_;
  std::shared_ptr<SerialQueue> diskQueue_;
  std::shared_ptr<Folder> folder_;
};

}  // namespace orrelo

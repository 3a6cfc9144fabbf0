#pragma once

#include "image/DiskCache.h"
#include "image/MemoryCache.h"

#include <orrelo/platform/Application.h>

#include <array>

namespace orrelo {

/// The cache level that served a read.
enum class CacheType { memory, disk };

template <class T>
struct CacheResult {
  T value;
  CacheType type;
};

/// The cached bytes could not be converted to a value.
enum class CacheError { dataConversion };
Error makeError(CacheError error);

/// A two-level cache of encoded bytes: memory in front of a folder. The folder is cleared when the
/// application enters the background or terminates; the memory level is kept. Files are not written
/// atomically. Any thread.
template <class T>
class Cache : public std::enable_shared_from_this<Cache<T>> {
 public:
  using Completion = std::function<void(Result<CacheResult<T>>)>;

  static std::shared_ptr<Cache> create(const std::string& name,
                                       std::shared_ptr<DataConvertible<T>> convertible,
                                       const Platform& platform,
                                       std::size_t memoryBudget = MemoryCache::defaultBudget) {
    std::shared_ptr<Cache> cache(new Cache(name, std::move(convertible), platform, memoryBudget));
    cache->observe(*platform.application);
    return cache;
  }

  /// Stores the data in memory at once and on disk asynchronously. Null removes the key from memory and
  /// deliberately keeps its file.
  void store(Data data, const WrappedKey& key) {
    if (!data) return memoryCache_.remove(key);
    memoryCache_.insert(key, data);
    diskCache_.insert(std::move(data), key);
  }

  /// Reads from memory or else from disk, and then stores the bytes in memory, so that concurrent requests
  /// read the file only once. Completes on the thread of the conversion; never after the cache was destroyed.
  void value(const WrappedKey& key, Completion completion) {
    if (auto data = memoryCache_.value(key)) {
      return convert(std::move(data), CacheType::memory, std::move(completion));
    }
    const auto weak = this->weak_from_this();
    const auto inMemory = [weak, key] {
      const auto self = weak.lock();
      return self ? self->memoryCache_.value(key) : nullptr;
    };
    diskCache_.value(key, inMemory, [weak, key, completion = std::move(completion)](Result<Data> result) {
      const auto self = weak.lock();
      if (!self) return;
      if (const auto* error = std::get_if<Error>(&result)) return completion(*error);
      auto& data = std::get<Data>(result);
      const bool isInMemory = self->memoryCache_.value(key) == data;
      if (!isInMemory) self->memoryCache_.insert(key, data);
      self->convert(std::move(data), isInMemory ? CacheType::memory : CacheType::disk, completion);
    });
  }

  /// Checks memory and, synchronously, the disk. Returns an error if the folder cannot be created.
  Result<bool> isCached(const WrappedKey& key) const {
    return memoryCache_.contains(key) ? Result<bool>(true) : diskCache_.contains(key);
  }

  MemoryCache& memoryCache() { return memoryCache_; }
  DiskCache& diskCache() { return diskCache_; }

 private:
  static constexpr std::chrono::milliseconds terminationTimeout{500};

  Cache(const std::string& name, std::shared_ptr<DataConvertible<T>> convertible, const Platform& platform,
        std::size_t memoryBudget)
      : convertible_(std::move(convertible)), memoryCache_(memoryBudget), diskCache_(name, platform) {}

  void observe(Application& application) {
    const auto cleanDiskOnNotification = [weak = this->weak_from_this()] {
      if (const auto self = weak.lock()) self->diskCache_.clear();
    };
    // Queued work would not run after the termination, so the queue is finished here.
    const auto cleanDiskNow = [weak = this->weak_from_this(), cleanDiskOnNotification] {
      cleanDiskOnNotification();
      if (const auto self = weak.lock()) self->diskCache_.finish(terminationTimeout);
    };
    using Signal = Application::Signal;
    registrations_ = {application.observe(Signal::willTerminate, cleanDiskNow),
                      application.observe(Signal::didEnterBackground, cleanDiskOnNotification)};
  }

  void convert(Data data, CacheType type, Completion completion) {
    convertible_->value(std::move(data), [type, completion = std::move(completion)](std::optional<T> value) {
      if (!value) return completion(makeError(CacheError::dataConversion));
      completion(CacheResult<T>{*std::move(value), type});
    });
  }

  std::shared_ptr<DataConvertible<T>> convertible_;
  MemoryCache memoryCache_;
  DiskCache diskCache_;
  std::array<Application::Registration, 2> registrations_;
};

}  // namespace orrelo

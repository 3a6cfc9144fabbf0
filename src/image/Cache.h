#pragma once

#include "image/DiskCache.h"
#include "image/MemoryCache.h"
#include "platform/Application.h"

#include <array>

namespace orrelo {

/// Which level served a read.
enum class CacheType { memory, disk };

template <class T>
struct CacheResult {
  T value;
  CacheType type;
};

/// Bytes were found that cannot become a value.
enum class CacheError { dataConversion };
Error makeError(CacheError error);

/// Encoded bytes by text, in memory and in front of a folder that lives while the application is in the
/// foreground: a trip to the background and the end of the application clear the folder, and leave the memory
/// as it is. A file is not written atomically. Any thread.
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

  /// In memory at once, on disk soon. Null removes the key from memory, and leaves a file where it is:
  /// deliberate.
  void store(Data data, const WrappedKey& key) {
    if (!data) return memoryCache_.remove(key);
    memoryCache_.insert(key, data);
    diskCache_.insert(std::move(data), key);
  }

  /// From memory, else from disk, whose bytes go into memory: of those who ask meanwhile, one alone reads.
  /// Completes where the conversion does; never once the cache is gone.
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

  /// Asks the disk too, now: an error where its folder cannot be had.
  Result<bool> isCached(const WrappedKey& key) const {
    return memoryCache_.contains(key) ? Result<bool>(true) : diskCache_.contains(key);
  }

  MemoryCache& memoryCache() { return memoryCache_; }
  DiskCache& diskCache() { return diskCache_; }

 private:
  static constexpr std::chrono::milliseconds longestWaitAtTheEnd{500};

  Cache(const std::string& name, std::shared_ptr<DataConvertible<T>> convertible, const Platform& platform,
        std::size_t memoryBudget)
      : convertible_(std::move(convertible)), memoryCache_(memoryBudget), diskCache_(name, platform) {}

  void observe(Application& application) {
    const auto cleanDiskOnNotification = [weak = this->weak_from_this()] {
      if (const auto self = weak.lock()) self->diskCache_.clear();
    };
    // Nobody runs what is still to be done once the process ends.
    const auto cleanDiskNow = [weak = this->weak_from_this(), cleanDiskOnNotification] {
      cleanDiskOnNotification();
      if (const auto self = weak.lock()) self->diskCache_.finish(longestWaitAtTheEnd);
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

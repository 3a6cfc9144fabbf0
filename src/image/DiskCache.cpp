#include "image/DiskCache.h"

#include "base/EnumTexts.h"
#include "platform/store/Files.h"

#include <functional>
#include <mutex>
#include <unordered_set>
#include <utility>

namespace orrelo {
namespace {

using StreamError = ImagePipelineInputStreamError;

void require(const std::optional<Error>& failure) {
  if (failure) throw *failure;
}

Data readFile(const std::filesystem::path& file) {
  std::string bytes;
  try {
    bytes = Files::read(file, maximumFileSize);
  } catch (const Error& error) {
    throw makeError(StreamError::uninitializedInputStream, error.localizedDescription());
  }
  if (bytes.empty()) throw makeError(StreamError::emptyFile);
  return makeData(std::move(bytes));
}

}  // namespace

/// The names of the folder's files that this process has written or listed. A page requests all its images at
/// once, on the main thread, and unknown names are answered without a system call. Known names are checked in
/// the file system, since another process of the host may share the folder and clear it. A file that another
/// process has written since the listing is unknown here and is downloaded again.
class DiskCache::Folder {
 public:
  bool isListed() const {
    const std::lock_guard lock(mutex_);
    return !path_.empty();
  }
  void list(const std::filesystem::path& folder) {
    const std::lock_guard lock(mutex_);
    if (!path_.empty()) return;
    path_ = folder.native();
    for (const auto& name : Files::namesIn(folder)) names_.insert(std::hash<std::string>()(name));
  }
  /// Must be called before the file is written.
  void add(const WrappedKey& key) {
    const std::lock_guard lock(mutex_);
    names_.insert(key.hash());
  }
  /// The path of the key's file if its name is known, otherwise empty.
  std::string knownFile(const WrappedKey& key) const {
    const std::lock_guard lock(mutex_);
    return names_.contains(key.hash()) ? path_ + '/' + key.key() : std::string();
  }
  void reset() {
    const std::lock_guard lock(mutex_);
    path_.clear();
    names_.clear();
  }

 private:
  mutable std::mutex mutex_;
  std::string path_;                       // empty until `list`, and after `reset`
  std::unordered_set<std::size_t> names_;  // hashes of the names
};

Error makeError(ImagePipelineInputStreamError error, std::optional<std::string> message) {
  static constexpr EnumTexts<StreamError, 2> names({
      {StreamError::uninitializedInputStream, "uninitializedInputStream"},
      {StreamError::emptyFile, "emptyFile"},
  });
  return Error("ImagePipelineInputStreamError", std::string(names.text(error)), std::move(message));
}

DiskCache::DiskCache(const std::string& name, const Platform& platform)
    : cacheName_("com.tamrenzo.OrreloSDK.DiskCache." + name),
      directories_(platform.directories),
      diskQueue_(std::make_shared<SerialQueue>(platform.workers, QualityOfService::standard)),
      folder_(std::make_shared<Folder>()) {}

std::filesystem::path DiskCache::directory() const {
  auto folder = directories_->cache() / cacheName_;
  require(Files::makeFolder(folder));
  folder_->list(folder);
  return folder;
}

// The task works on a copy, since the cache may be destroyed before the task runs. The copy has no queue: a
// queue whose pool is destroyed would keep itself alive through its tasks.
void DiskCache::run(std::function<void(const DiskCache&)> work, Completion completion) const {
  auto copy = *this;
  copy.diskQueue_ = nullptr;
  diskQueue_->post([self = std::move(copy), work = std::move(work), completion = std::move(completion)] {
    std::optional<Error> failure;
    try {
      work(self);
    } catch (...) {
      failure = Error::fromCurrentException();
    }
    if (completion) completion(failure);
  });
}

void DiskCache::insert(Data data, const WrappedKey& key, Completion completion) {
  run(
      [data = std::move(data), key](const DiskCache& self) {
        if (data->size() > maximumFileSize) throw makeError(FileError::write, "This is too large a file");
        const auto folder = self.directory();
        self.folder_->add(key);
        require(Files::write(folder / key.key(), *data));
      },
      std::move(completion));
}

void DiskCache::value(const WrappedKey& key, std::function<Data()> known,
                      std::function<void(Result<Data>)> completion) const {
  const auto found = std::make_shared<Data>();
  run(
      [found, known = std::move(known), name = key.key()](const DiskCache& self) {
        *found = known();
        if (!*found) *found = readFile(self.directory() / name);
      },
      [found, completion = std::move(completion)](const std::optional<Error>& failure) {
        completion(failure ? Result<Data>(*failure) : Result<Data>(*found));
      });
}

void DiskCache::clear(Completion completion) {
  run(
      [](const DiskCache& self) {
        const auto folder = self.directory();
        self.folder_->reset();
        require(Files::removeFolder(folder));
      },
      std::move(completion));
}

Result<bool> DiskCache::contains(const WrappedKey& key) const {
  try {
    if (!folder_->isListed()) directory();
    const auto file = folder_->knownFile(key);
    return !file.empty() && Files::exists(file);
  } catch (const Error& error) {
    return error;
  }
}

}  // namespace orrelo

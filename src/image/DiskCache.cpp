#include "image/DiskCache.h"

#include "platform/Files.h"

#include <array>
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

Error makeError(ImagePipelineInputStreamError error, std::optional<std::string> message) {
  static constexpr std::array names{"uninitializedInputStream", "emptyFile"};
  return Error("ImagePipelineInputStreamError", names.at(static_cast<std::size_t>(error)),
               std::move(message));
}

DiskCache::DiskCache(const std::string& name, const Platform& platform)
    : cacheName_("com.tamrenzo.OrreloSDK.DiskCache." + name),
      directories_(platform.directories),
      diskQueue_(std::make_shared<SerialQueue>(platform.workers, QualityOfService::standard)) {}

std::filesystem::path DiskCache::directory() const {
  auto folder = directories_->cache() / cacheName_;
  require(Files::makeFolder(folder));
  made_->set(folder.native());
  return folder;
}

// The queue works on a copy: the cache may go before its turn comes.
void DiskCache::run(std::function<void(const DiskCache&)> work, Completion completion) const {
  diskQueue_->post([self = *this, work = std::move(work), completion = std::move(completion)] {
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
      [data = std::move(data), name = key.key()](const DiskCache& self) {
        if (data->size() > maximumFileSize) throw makeError(FileError::write, "This is too large a file");
        require(Files::write(self.directory() / name, *data));
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
        self.made_->set("");
        require(Files::removeFolder(folder));
      },
      std::move(completion));
}

Result<bool> DiskCache::contains(const WrappedKey& key) const {
  try {
    // A page asks for all its pictures at once, on the main thread. Whoever takes away the folder that was
    // made takes the files along.
    auto folder = made_->value();
    if (folder.empty()) folder = directory().native();
    return Files::exists(folder + '/' + key.key());
  } catch (const Error& error) {
    return error;
  }
}

}  // namespace orrelo

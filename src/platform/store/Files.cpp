#include "platform/store/Files.h"

#include "base/EnumTexts.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace orrelo {
namespace {

namespace fs = std::filesystem;

class Descriptor {
 public:
  Descriptor(const fs::path& file, int flags) : number_(::open(file.c_str(), flags | O_CLOEXEC, 0600)) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }

 private:
  int number_;
};

std::string messageOf(int number) {
  return std::generic_category().message(number);
}

std::string systemMessage() {
  return messageOf(errno);
}

}  // namespace

Error makeError(FileError error, std::string message) {
  static constexpr EnumTexts<FileError, 5> names({
      {FileError::directory, "directory"},
      {FileError::open, "open"},
      {FileError::read, "read"},
      {FileError::write, "write"},
      {FileError::remove, "remove"},
  });
  return Error("FileError", std::string(names.text(error)), std::move(message));
}

std::optional<Error> Files::makeFolder(const fs::path& folder) {
  std::error_code failure;
  if (fs::create_directories(folder, failure)) fs::permissions(folder, fs::perms::owner_all, failure);
  if (failure) return makeError(FileError::directory, failure.message());
  return std::nullopt;
}

std::string Files::read(const fs::path& file, std::size_t maximumSize) {
  const Descriptor descriptor(file, O_RDONLY | O_NONBLOCK);  // opening a pipe would block
  if (descriptor.number() < 0) throw makeError(FileError::open, systemMessage());
  struct stat status {};
  if (::fstat(descriptor.number(), &status) != 0) throw makeError(FileError::open, systemMessage());
  if (!S_ISREG(status.st_mode)) throw makeError(FileError::open, "This is no plain file");
  if (status.st_size > 0 && static_cast<std::uintmax_t>(status.st_size) > maximumSize) {
    throw makeError(FileError::read, messageOf(EFBIG));
  }
  const auto size = static_cast<std::size_t>(status.st_size);
  std::string bytes(size, '\0');
  std::size_t done = 0;
  while (done < size) {
    const auto count = ::read(descriptor.number(), bytes.data() + done, size - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw makeError(FileError::read, systemMessage());
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
  return bytes;
}

std::optional<Error> Files::write(const fs::path& file, std::string_view bytes) {
  const Descriptor descriptor(file, O_WRONLY | O_CREAT | O_TRUNC);
  if (descriptor.number() < 0) return makeError(FileError::open, systemMessage());
  while (!bytes.empty()) {
    const auto count = ::write(descriptor.number(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return makeError(FileError::write, systemMessage());
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return std::nullopt;
}

std::optional<Error> Files::removeFolder(const fs::path& folder) {
  std::error_code failure;
  const auto removed = fs::remove_all(folder, failure);
  if (failure) return makeError(FileError::remove, failure.message());
  if (removed == 0) return makeError(FileError::remove, messageOf(ENOENT));
  return std::nullopt;
}

bool Files::exists(const std::string& file) {
  struct stat status {};
  return ::stat(file.c_str(), &status) == 0;
}

std::vector<std::string> Files::namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure); !failure && entry != fs::directory_iterator();
       entry.increment(failure)) {
    names.push_back(entry->path().filename().native());
  }
  return names;
}

}  // namespace orrelo

#include "platform/journal/JournalFile.h"

#include "platform/journal/JournalFormat.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <span>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace orrelo {
namespace {

namespace fs = std::filesystem;

// With 32 bits each, `fstat` would fail for files of large numbers, which some file systems have.
static_assert(sizeof(off_t) == 8 && sizeof(ino_t) == 8);

constexpr off_t reservedSize = off_t{256} * 1024;
constexpr int openFlags = O_RDWR | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

std::optional<FileIdentity> identityOf(int result, const struct stat& status) {
  if (result != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

void closeIfOpen(int& descriptor) {
  if (descriptor >= 0) ::close(descriptor);
  descriptor = -1;
}

}  // namespace

ssize_t writeOnce(int descriptor, std::string_view bytes) {
  ssize_t count = 0;
  do count = ::write(descriptor, bytes.data(), bytes.size());
  while (count < 0 && errno == EINTR);
  return count;
}

std::optional<FileIdentity> FileIdentity::of(const fs::path& path) {
  struct stat status {};
  return identityOf(::lstat(path.c_str(), &status), status);
}

std::optional<FileIdentity> FileIdentity::of(int descriptor) {
  struct stat status {};
  return identityOf(::fstat(descriptor, &status), status);
}

JournalFile::JournalFile(const fs::path& folder, std::uint64_t seed)
    : seed_(seed),
      path_(folder / journal::fileName(seed)),
      temporaryPath_(folder / journal::temporaryName(seed)) {}

std::shared_ptr<JournalFile> JournalFile::create(const fs::path& folder, Random& random, Maker maker) {
  // Another process may take a file that is not locked yet for one that a dead process has left, and remove
  // it.
  for (int attempt = 0; attempt < 3; ++attempt) {
    std::array<std::uint8_t, sizeof(std::uint64_t)> bytes{};
    random.fill(bytes);
    std::uint64_t seed = 0;
    for (const auto byte : bytes) seed = (seed << 8) | byte;
    const std::shared_ptr<JournalFile> file(new JournalFile(folder, seed));
    const auto outcome = file->make(maker);
    if (outcome == Attempt::made) return file;
    if (outcome == Attempt::failed) break;
  }
  return nullptr;
}

JournalFile::Attempt JournalFile::make(Maker maker) {
  maker_ = maker;
  int descriptor = ::open(temporaryPath_.c_str(), openFlags | O_CREAT | O_EXCL, 0600);
  if (descriptor < 0) return errno == EEXIST ? Attempt::nameTaken : Attempt::failed;
  const auto identity = FileIdentity::of(descriptor);
  const bool isLocked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
  if (!isLocked || !identity || FileIdentity::of(temporaryPath_) != identity) {
    const bool isTaken = isLocked || errno == EWOULDBLOCK;
    if (!isTaken) ::unlink(temporaryPath_.c_str());  // this file system has no locks
    closeIfOpen(descriptor);
    return isTaken ? Attempt::nameTaken : Attempt::failed;
  }
  identity_ = *identity;
  (maker == Maker::keeper ? keeper_ : writer_) = descriptor;
  allocate(descriptor);
  if (fill(journal::fileHeader(seed_))) return Attempt::made;
  remove();
  closeIfOpen(maker == Maker::keeper ? keeper_ : writer_);
  return Attempt::failed;
}

void JournalFile::allocate(int descriptor) {
  isReserved_ = ::fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, reservedSize) == 0;
}

void JournalFile::reserve() {
  if (!isReserved_ && keeper_ >= 0) allocate(keeper_);
}

bool JournalFile::fill(std::string_view bytes) {
  const int descriptor = maker_ == Maker::keeper ? keeper_ : writer_;
  while (!bytes.empty()) {
    const auto count = writeOnce(descriptor, bytes);
    if (count <= 0) return false;
    size_ += static_cast<std::size_t>(count);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool JournalFile::sync() {
  return ::fdatasync(maker_ == Maker::keeper ? keeper_ : writer_) == 0;
}

bool JournalFile::openWriter() {
  if (writer_ < 0) writer_ = ::open(temporaryPath_.c_str(), openFlags);
  return isOpen(writer_);
}

bool JournalFile::publish() {
  isPublished_ = ::rename(temporaryPath_.c_str(), path_.c_str()) == 0;
  return isPublished_;
}

bool JournalFile::appendTo(int descriptor, std::string_view bytes) {
  const auto count = writeOnce(descriptor, bytes);
  if (count > 0) size_ += static_cast<std::size_t>(count);
  return count == static_cast<ssize_t>(bytes.size());
}

bool JournalFile::append(std::string_view bytes) {
  return appendTo(writer_, bytes);
}

bool JournalFile::isOpen(int descriptor) const {
  return descriptor >= 0 && FileIdentity::of(descriptor) == identity_;
}

void JournalFile::closeOwn(int& descriptor) const {
  // The host may have closed the descriptor; then its number may be one of the host's files.
  if (isOpen(descriptor)) ::close(descriptor);
  descriptor = -1;
}

bool JournalFile::hasKeeper() {
  if (isOpen(keeper_)) return true;
  const bool isLost = keeper_ >= 0;
  keeper_ = ::open(path_.c_str(), openFlags);
  if (!isOpen(keeper_)) closeIfOpen(keeper_);
  return keeper_ >= 0 && !isLost;
}

bool JournalFile::appendByKeeper(std::string_view bytes) {
  hasKeeper();
  return keeper_ >= 0 && appendTo(keeper_, bytes);
}

bool JournalFile::isWhole() const {
  const std::uintmax_t expected = size_;
  struct stat status {};
  const auto identity = identityOf(::lstat(path_.c_str(), &status), status);
  return identity == identity_ && static_cast<std::uintmax_t>(status.st_size) >= expected;
}

void JournalFile::remove() const {
  const auto& current = isPublished_ ? path_ : temporaryPath_;
  if (FileIdentity::of(current) == identity_) ::unlink(current.c_str());
}

}  // namespace orrelo

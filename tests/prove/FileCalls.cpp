#include "prove/FileCalls.h"

#include "prove/Change.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <initializer_list>
#include <string_view>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace orrelo::prove {
namespace {

using Kind = Change::Kind;

/// Stands for a write of only half of the bytes.
constexpr int half = -1;

struct State {
  std::string folder;
  int count = 0;
  int failing = 0;
  int variant = 0;
  int log = -1;
  std::string failed;
};

bool isWatching = false;

State& state() {
  static auto* const state = new State;
  return *state;
}

/// The file's path. The writer's thread has descriptors of its own, which /proc/self does not show.
std::string pathOf(int file) {
  if (!isWatching) return {};
  std::array<char, PATH_MAX> path{};
  const auto link = "/proc/thread-self/fd/" + std::to_string(file);
  const auto size = readlink(link.c_str(), path.data(), path.size());
  return size < 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(size));
}

bool isWatched(std::string_view path) {
  return isWatching && path.starts_with(state().folder);
}

/// The error with which this call must fail, or 0.
int due(const char* call, std::string_view path, std::initializer_list<int> errors) {
  if (!isWatched(path)) return 0;
  auto& now = state();
  if (++now.count != now.failing) return 0;
  const int error = errors.begin()[static_cast<std::size_t>(now.variant) % errors.size()];
  now.failed = std::string(call) + " " + std::string(path.substr(now.folder.size())) + ": " +
               (error == half ? "half" : strerrorname_np(error));
  return error;
}

void append(const Change& change) {
  const auto text = change.encoded();
  const auto written = syscall(SYS_write, state().log, text.data(), text.size());
  if (written != static_cast<long>(text.size())) _exit(3);
}

bool isRecorded(std::string_view path) {
  // SQLite builds the index of its log anew after a crash.
  return isWatched(path) && state().log >= 0 && !path.ends_with("-shm");
}

std::uint64_t inodeOf(int folder, const char* path, int flags) {
  struct stat status {};
  return fstatat(folder, path, &status, flags) == 0 ? status.st_ino : 0;
}

std::uint64_t inodeOf(int file) {
  return inodeOf(file, "", AT_EMPTY_PATH);
}

std::uint64_t inodeOf(const char* path) {
  return inodeOf(AT_FDCWD, path, AT_SYMLINK_NOFOLLOW);
}

void recordWrite(int file, std::string_view path, const char* bytes, ssize_t size, off_t at) {
  if (size <= 0 || !isRecorded(path)) return;
  append({Kind::write, inodeOf(file), static_cast<std::uint64_t>(at), "", "",
          std::string(bytes, static_cast<std::size_t>(size))});
}

void recordOpen(int file, const char* path, int flags, bool isNew) {
  if (file < 0 || !isRecorded(path)) return;
  if (isNew) append({Kind::create, inodeOf(file), 0, (flags & O_TMPFILE) == O_TMPFILE ? "" : path});
  if ((flags & O_TRUNC) != 0 && !isNew) append({Kind::resize, inodeOf(file), 0});
}

}  // namespace

void FileCalls::watch(const std::filesystem::path& folder) {
  state().folder = folder.string();
  state().count = 0;
  isWatching = true;
}

void FileCalls::fail(int number, int variant) {
  state().failing = number;
  state().variant = variant;
}

void FileCalls::record(const std::filesystem::path& log) {
  state().log = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (state().log < 0) _exit(3);
}

void FileCalls::note(const std::string& text) {
  if (state().log >= 0) append({Kind::note, 0, 0, "", "", text});
}

int FileCalls::count() {
  return state().count;
}

std::string FileCalls::failed() {
  return state().failed;
}

}  // namespace orrelo::prove

// NOLINTBEGIN: these are the C library's own names.
using namespace orrelo::prove;

#define DEFINE extern "C" __attribute__((visibility("default")))
#define NEXT(name) static const auto next = reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name))
// Leaves the function with `result` if this call must fail.
#define FAIL(path, result, ...)                                         \
  if (const int error = due(__func__, path, __VA_ARGS__); error != 0) { \
    errno = error;                                                      \
    return result;                                                      \
  }
#define OPEN_ERRORS \
  { EACCES, EMFILE, ENOSPC }

#define DEFINE_OPEN(name)                                                     \
  DEFINE int name(const char* path, int flags, ...) {                         \
    NEXT(name);                                                               \
    va_list more;                                                             \
    va_start(more, flags);                                                    \
    const auto mode = va_arg(more, mode_t);                                   \
    va_end(more);                                                             \
    FAIL(path, -1, OPEN_ERRORS);                                              \
    const bool isNew = (flags & O_CREAT) != 0 && inodeOf(path) == 0;          \
    const int file = next(path, flags, mode);                                 \
    recordOpen(file, path, flags, isNew || (flags & O_TMPFILE) == O_TMPFILE); \
    return file;                                                              \
  }
DEFINE_OPEN(open)
DEFINE_OPEN(open64)

#define DEFINE_OPENAT(name)                                                            \
  DEFINE int name(int folder, const char* path, int flags, ...) {                      \
    NEXT(name);                                                                        \
    va_list more;                                                                      \
    va_start(more, flags);                                                             \
    const auto mode = va_arg(more, mode_t);                                            \
    va_end(more);                                                                      \
    const auto whole = *path == '/' ? path : pathOf(folder) + "/" + path;              \
    FAIL(whole, -1, OPEN_ERRORS);                                                      \
    const bool isNew = (flags & O_CREAT) != 0 && inodeOf(whole.c_str()) == 0;          \
    const int file = next(folder, path, flags, mode);                                  \
    recordOpen(file, whole.c_str(), flags, isNew || (flags & O_TMPFILE) == O_TMPFILE); \
    return file;                                                                       \
  }
DEFINE_OPENAT(openat)
DEFINE_OPENAT(openat64)

DEFINE ssize_t write(int file, const void* bytes, size_t size) {
  NEXT(write);
  const auto path = pathOf(file);
  const int error = due(__func__, path, {ENOSPC, EIO, half});
  if (error > 0) {
    errno = error;
    return -1;
  }
  const auto written = next(file, bytes, error == half ? size / 2 : size);
  if (isRecorded(path))
    recordWrite(file, path, static_cast<const char*>(bytes), written, lseek(file, 0, SEEK_CUR) - written);
  return written;
}

DEFINE ssize_t writev(int file, const iovec* parts, int count) {
  std::string bytes;
  NEXT(writev);
  if (!isWatching) return next(file, parts, count);
  for (int i = 0; i < count; ++i) bytes.append(static_cast<const char*>(parts[i].iov_base), parts[i].iov_len);
  return write(file, bytes.data(), bytes.size());
}

#define DEFINE_PWRITE(name)                                                      \
  DEFINE ssize_t name(int file, const void* bytes, size_t size, off_t at) {      \
    NEXT(name);                                                                  \
    const auto path = pathOf(file);                                              \
    const int error = due(__func__, path, {ENOSPC, EIO, half});                  \
    if (error > 0) {                                                             \
      errno = error;                                                             \
      return -1;                                                                 \
    }                                                                            \
    const auto written = next(file, bytes, error == half ? size / 2 : size, at); \
    recordWrite(file, path, static_cast<const char*>(bytes), written, at);       \
    return written;                                                              \
  }
DEFINE_PWRITE(pwrite)
DEFINE_PWRITE(pwrite64)

DEFINE ssize_t read(int file, void* bytes, size_t size) {
  NEXT(read);
  FAIL(pathOf(file), -1, {EIO, EINTR});
  return next(file, bytes, size);
}

#define DEFINE_PREAD(name)                                            \
  DEFINE ssize_t name(int file, void* bytes, size_t size, off_t at) { \
    NEXT(name);                                                       \
    FAIL(pathOf(file), -1, {EIO, EINTR});                             \
    return next(file, bytes, size, at);                               \
  }
DEFINE_PREAD(pread)
DEFINE_PREAD(pread64)

#define DEFINE_SYNC(name)                                               \
  DEFINE int name(int file) {                                           \
    NEXT(name);                                                         \
    const auto path = pathOf(file);                                     \
    FAIL(path, -1, {EIO, ENOSPC});                                      \
    if (isRecorded(path)) append({Kind::sync, inodeOf(file), 0, path}); \
    /* No machine loses its power here. */                              \
    return isWatched(path) ? 0 : next(file);                            \
  }
DEFINE_SYNC(fsync)
DEFINE_SYNC(fdatasync)

#define DEFINE_TRUNCATE(name)                                                  \
  DEFINE int name(int file, off_t size) noexcept {                             \
    NEXT(name);                                                                \
    const auto path = pathOf(file);                                            \
    FAIL(path, -1, {EIO, ENOSPC});                                             \
    const int result = next(file, size);                                       \
    if (result == 0 && isRecorded(path))                                       \
      append({Kind::resize, inodeOf(file), static_cast<std::uint64_t>(size)}); \
    return result;                                                             \
  }
DEFINE_TRUNCATE(ftruncate)
DEFINE_TRUNCATE(ftruncate64)

static void recordAllocation(int file, const std::string& path, int mode) {
  struct stat status {};
  if (!isRecorded(path) || (mode & FALLOC_FL_KEEP_SIZE) != 0) return;
  if (fstatat(file, "", &status, AT_EMPTY_PATH) != 0) return;
  append({Kind::resize, status.st_ino, static_cast<std::uint64_t>(status.st_size)});
}

#define DEFINE_ALLOCATE(name)                                 \
  DEFINE int name(int file, int mode, off_t at, off_t size) { \
    NEXT(name);                                               \
    const auto path = pathOf(file);                           \
    FAIL(path, -1, {ENOSPC, EIO});                            \
    const int result = next(file, mode, at, size);            \
    if (result == 0) recordAllocation(file, path, mode);      \
    return result;                                            \
  }
DEFINE_ALLOCATE(fallocate)
DEFINE_ALLOCATE(fallocate64)

#define DEFINE_POSIX_ALLOCATE(name)                                         \
  DEFINE int name(int file, off_t at, off_t size) {                         \
    NEXT(name);                                                             \
    const auto path = pathOf(file);                                         \
    if (const int error = due(__func__, path, {ENOSPC, EIO})) return error; \
    const int result = next(file, at, size);                                \
    if (result == 0) recordAllocation(file, path, 0);                       \
    return result;                                                          \
  }
DEFINE_POSIX_ALLOCATE(posix_fallocate)
DEFINE_POSIX_ALLOCATE(posix_fallocate64)

#define DEFINE_FCNTL(name)                                                                     \
  DEFINE int name(int file, int command, ...) {                                                \
    NEXT(name);                                                                                \
    va_list more;                                                                              \
    va_start(more, command);                                                                   \
    void* const argument = va_arg(more, void*);                                                \
    va_end(more);                                                                              \
    const auto* const lock = static_cast<const struct flock*>(argument);                       \
    const bool locks = command == F_SETLK || command == F_OFD_SETLK || command == F_SETLKW;    \
    if (isWatching && locks && lock->l_type != F_UNLCK) FAIL(pathOf(file), -1, {EAGAIN, EIO}); \
    return next(file, command, argument);                                                      \
  }
DEFINE_FCNTL(fcntl)
DEFINE_FCNTL(fcntl64)

DEFINE int flock(int file, int operation) noexcept {
  NEXT(flock);
  if ((operation & LOCK_UN) == 0) FAIL(pathOf(file), -1, {EWOULDBLOCK, ENOLCK, EINTR});
  return next(file, operation);
}

#define DEFINE_MMAP(name)                                                                              \
  DEFINE void* name(void* at, size_t size, int protection, int flags, int file, off_t from) noexcept { \
    NEXT(name);                                                                                        \
    if (file >= 0) FAIL(pathOf(file), MAP_FAILED, {ENOMEM, EACCES});                                   \
    return next(at, size, protection, flags, file, from);                                              \
  }
DEFINE_MMAP(mmap)
DEFINE_MMAP(mmap64)

#define DEFINE_STAT(name, type)                                     \
  DEFINE int name(const char* path, struct type* status) noexcept { \
    NEXT(name);                                                     \
    FAIL(path, -1, {EACCES, EIO});                                  \
    return next(path, status);                                      \
  }
DEFINE_STAT(stat, stat)
DEFINE_STAT(stat64, stat64)
DEFINE_STAT(lstat, stat)
DEFINE_STAT(lstat64, stat64)

#define DEFINE_FSTAT(name, type)                            \
  DEFINE int name(int file, struct type* status) noexcept { \
    NEXT(name);                                             \
    FAIL(pathOf(file), -1, {EIO});                          \
    return next(file, status);                              \
  }
DEFINE_FSTAT(fstat, stat)
DEFINE_FSTAT(fstat64, stat64)

DEFINE int access(const char* path, int mode) noexcept {
  NEXT(access);
  FAIL(path, -1, {EACCES, EIO});
  return next(path, mode);
}

DEFINE int mkdir(const char* path, mode_t mode) noexcept {
  NEXT(mkdir);
  FAIL(path, -1, {EACCES, ENOSPC});
  const int result = next(path, mode);
  if (result == 0 && isRecorded(path)) append({Kind::makeFolder, 0, 0, path});
  return result;
}

DEFINE int unlink(const char* path) noexcept {
  NEXT(unlink);
  FAIL(path, -1, {EACCES, EIO});
  const int result = next(path);
  if (result == 0 && isRecorded(path)) append({Kind::unlink, 0, 0, path});
  return result;
}

DEFINE int rename(const char* path, const char* to) noexcept {
  NEXT(rename);
  FAIL(path, -1, {EACCES, EIO});
  const int result = next(path, to);
  if (result == 0 && isRecorded(path)) append({Kind::rename, 0, 0, path, to});
  return result;
}

DEFINE int linkat(int folder, const char* path, int toFolder, const char* to, int flags) noexcept {
  NEXT(linkat);
  const auto whole = *to == '/' ? to : pathOf(toFolder) + "/" + to;
  FAIL(whole, -1, {EACCES, ENOSPC, EIO});
  const int result = next(folder, path, toFolder, to, flags);
  if (result == 0 && isRecorded(whole)) append({Kind::link, inodeOf(whole.c_str()), 0, "", whole});
  return result;
}

DEFINE int link(const char* path, const char* to) noexcept {
  NEXT(link);
  if (!isWatching) return next(path, to);
  return linkat(AT_FDCWD, path, AT_FDCWD, to, 0);
}

DEFINE int unlinkat(int folder, const char* path, int flags) noexcept {
  NEXT(unlinkat);
  const auto whole = *path == '/' ? path : pathOf(folder) + "/" + path;
  FAIL(whole, -1, {EACCES, EIO});
  const int result = next(folder, path, flags);
  if (result == 0 && isRecorded(whole)) append({Kind::unlink, 0, 0, whole});
  return result;
}

DEFINE int renameat(int folder, const char* path, int toFolder, const char* to) noexcept {
  NEXT(renameat);
  const auto whole = *path == '/' ? path : pathOf(folder) + "/" + path;
  const auto wholeTo = *to == '/' ? to : pathOf(toFolder) + "/" + to;
  FAIL(whole, -1, {EACCES, EIO});
  const int result = next(folder, path, toFolder, to);
  if (result == 0 && isRecorded(whole)) append({Kind::rename, 0, 0, whole, wholeTo});
  return result;
}

DEFINE DIR* opendir(const char* path) {
  NEXT(opendir);
  FAIL(path, nullptr, {EACCES, EMFILE});
  return next(path);
}
// NOLINTEND

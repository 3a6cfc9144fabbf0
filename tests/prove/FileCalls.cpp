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

std::uint64_t sizeOf(int file) {
  struct stat status {};
  fstatat(file, "", &status, AT_EMPTY_PATH);
  return static_cast<std::uint64_t>(status.st_size);
}

std::string wholePath(int folder, const char* path) {
  return *path == '/' ? std::string(path) : pathOf(folder) + "/" + path;
}

void recordWrite(int file, const char* bytes, ssize_t size, off_t at) {
  append({Kind::write, inodeOf(file), static_cast<std::uint64_t>(at), "", "",
          std::string(bytes, static_cast<std::size_t>(size))});
}

void recordOpen(int file, const char* path, int flags, bool isNew) {
  if (file < 0 || !isRecorded(path)) return;
  const bool isNameless = (flags & O_TMPFILE) == O_TMPFILE;
  if (isNew || isNameless) append({Kind::create, inodeOf(file), 0, isNameless ? "" : path});
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
// clang-format off
using namespace orrelo::prove;

#define DEFINE extern "C" __attribute__((visibility("default")))
#define NEXT(name) static const auto next = reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name))
// Leaves the function with `failed` if this call must fail.
#define FAIL(path, failed, ...) \
  if (const int error = due(__func__, path, {__VA_ARGS__}); error != 0) { errno = error; return failed; }
// A call that changes no file.
#define READING(type, name, parameters, arguments, path, failed, ...) \
  DEFINE type name parameters { NEXT(name); FAIL(path, failed, __VA_ARGS__) return next arguments; }
// A call that is recorded as `...` if it succeeds; `at` is the file's path.
#define CHANGING(name, parameters, arguments, path, first, second, ...) \
  DEFINE int name parameters { \
    NEXT(name); \
    const std::string at = path; \
    FAIL(at, -1, first, second) \
    const int result = next arguments; \
    if (result == 0 && isRecorded(at)) append({__VA_ARGS__}); \
    return result; \
  }

READING(ssize_t, read, (int file, void* bytes, size_t size), (file, bytes, size), pathOf(file), -1, EIO, EINTR)
READING(ssize_t, pread, (int file, void* bytes, size_t size, off_t at), (file, bytes, size, at), pathOf(file), -1, EIO, EINTR)
READING(ssize_t, pread64, (int file, void* bytes, size_t size, off_t at), (file, bytes, size, at), pathOf(file), -1, EIO, EINTR)
READING(int, stat, (const char* path, struct stat* status) noexcept, (path, status), path, -1, EACCES, EIO)
READING(int, stat64, (const char* path, struct stat64* status) noexcept, (path, status), path, -1, EACCES, EIO)
READING(int, lstat, (const char* path, struct stat* status) noexcept, (path, status), path, -1, EACCES, EIO)
READING(int, lstat64, (const char* path, struct stat64* status) noexcept, (path, status), path, -1, EACCES, EIO)
READING(int, fstat, (int file, struct stat* status) noexcept, (file, status), pathOf(file), -1, EIO)
READING(int, fstat64, (int file, struct stat64* status) noexcept, (file, status), pathOf(file), -1, EIO)
READING(int, access, (const char* path, int mode) noexcept, (path, mode), path, -1, EACCES, EIO)
READING(DIR*, opendir, (const char* path), (path), path, nullptr, EACCES, EMFILE)
READING(int, chmod, (const char* path, mode_t mode) noexcept, (path, mode), path, -1, EPERM, EIO)
READING(int, fchmod, (int file, mode_t mode) noexcept, (file, mode), pathOf(file), -1, EPERM, EIO)
READING(int, flock, (int file, int operation) noexcept, (file, operation), pathOf(file), -1, EWOULDBLOCK, ENOLCK, EINTR)
READING(void*, mmap, (void* to, size_t size, int protection, int flags, int file, off_t from) noexcept,
        (to, size, protection, flags, file, from), file < 0 ? "" : pathOf(file), MAP_FAILED, ENOMEM, EACCES)
READING(void*, mmap64, (void* to, size_t size, int protection, int flags, int file, off_t from) noexcept,
        (to, size, protection, flags, file, from), file < 0 ? "" : pathOf(file), MAP_FAILED, ENOMEM, EACCES)

CHANGING(mkdir, (const char* path, mode_t mode) noexcept, (path, mode), path, EACCES, ENOSPC, Kind::makeFolder, 0, 0, at)
CHANGING(unlink, (const char* path) noexcept, (path), path, EACCES, EIO, Kind::unlink, 0, 0, at)
CHANGING(unlinkat, (int folder, const char* path, int flags) noexcept, (folder, path, flags), wholePath(folder, path),
         EACCES, EIO, Kind::unlink, 0, 0, at)
CHANGING(rename, (const char* path, const char* to) noexcept, (path, to), path, EACCES, EIO, Kind::rename, 0, 0, at, to)
CHANGING(link, (const char* path, const char* to) noexcept, (path, to), to, EACCES, ENOSPC, Kind::link, inodeOf(to), 0, "", at)
CHANGING(linkat, (int folder, const char* path, int toFolder, const char* to, int flags) noexcept,
         (folder, path, toFolder, to, flags), wholePath(toFolder, to), EACCES, ENOSPC, Kind::link, inodeOf(at.c_str()), 0, "", at)
CHANGING(fsync, (int file), (file), pathOf(file), EIO, ENOSPC, Kind::sync, inodeOf(file), 0, at)
CHANGING(fdatasync, (int file), (file), pathOf(file), EIO, ENOSPC, Kind::sync, inodeOf(file), 0, at)
CHANGING(ftruncate, (int file, off_t size) noexcept, (file, size), pathOf(file), EIO, ENOSPC, Kind::resize, inodeOf(file), sizeOf(file))
CHANGING(ftruncate64, (int file, off_t size) noexcept, (file, size), pathOf(file), EIO, ENOSPC, Kind::resize, inodeOf(file), sizeOf(file))
CHANGING(fallocate, (int file, int mode, off_t from, off_t size), (file, mode, from, size), pathOf(file), ENOSPC, EIO,
         Kind::resize, inodeOf(file), sizeOf(file))

#define DEFINE_OPEN(name) \
  DEFINE int name(const char* path, int flags, ...) { \
    NEXT(name); \
    va_list more; \
    va_start(more, flags); \
    const auto mode = va_arg(more, mode_t); \
    va_end(more); \
    FAIL(path, -1, EACCES, EMFILE, ENOSPC) \
    const bool isNew = (flags & O_CREAT) != 0 && inodeOf(path) == 0; \
    const int file = next(path, flags, mode); \
    recordOpen(file, path, flags, isNew); \
    return file; \
  }
DEFINE_OPEN(open)
DEFINE_OPEN(open64)

#define DEFINE_OPENAT(name) \
  DEFINE int name(int folder, const char* path, int flags, ...) { \
    NEXT(name); \
    va_list more; \
    va_start(more, flags); \
    const auto mode = va_arg(more, mode_t); \
    va_end(more); \
    const auto whole = wholePath(folder, path); \
    FAIL(whole, -1, EACCES, EMFILE, ENOSPC) \
    const bool isNew = (flags & O_CREAT) != 0 && inodeOf(whole.c_str()) == 0; \
    const int file = next(folder, path, flags, mode); \
    recordOpen(file, whole.c_str(), flags, isNew); \
    return file; \
  }
DEFINE_OPENAT(openat)
DEFINE_OPENAT(openat64)

#define DEFINE_WRITE(name, parameters, arguments, position) \
  DEFINE ssize_t name parameters { \
    NEXT(name); \
    const auto path = pathOf(file); \
    const int error = due(__func__, path, {ENOSPC, EIO, half}); \
    if (error == half) size /= 2; \
    if (error > 0) { errno = error; return -1; } \
    const auto written = next arguments; \
    if (written > 0 && isRecorded(path)) recordWrite(file, static_cast<const char*>(bytes), written, position); \
    return written; \
  }
DEFINE_WRITE(write, (int file, const void* bytes, size_t size), (file, bytes, size), lseek(file, 0, SEEK_CUR) - written)
DEFINE_WRITE(pwrite, (int file, const void* bytes, size_t size, off_t at), (file, bytes, size, at), at)
DEFINE_WRITE(pwrite64, (int file, const void* bytes, size_t size, off_t at), (file, bytes, size, at), at)

#define DEFINE_FCNTL(name) \
  DEFINE int name(int file, int command, ...) { \
    NEXT(name); \
    va_list more; \
    va_start(more, command); \
    void* const argument = va_arg(more, void*); \
    va_end(more); \
    const bool locks = command == F_SETLK || command == F_OFD_SETLK || command == F_SETLKW; \
    if (isWatching && locks && static_cast<const struct flock*>(argument)->l_type != F_UNLCK) \
      FAIL(pathOf(file), -1, EAGAIN, EIO) \
    return next(file, command, argument); \
  }
DEFINE_FCNTL(fcntl)
DEFINE_FCNTL(fcntl64)
// clang-format on
// NOLINTEND

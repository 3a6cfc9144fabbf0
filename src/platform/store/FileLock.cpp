#include "platform/store/FileLock.h"

#include "platform/store/SqliteFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace orrelo {

std::unique_ptr<FileLock> FileLock::acquire(const std::filesystem::path& file) {
  constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  const int descriptor = open(file.c_str(), flags, 0600);
  if (descriptor < 0) {
    throw SqliteFailure(SQLITE_CANTOPEN, errno,
                        file.string() + ": " + std::generic_category().message(errno));
  }
  std::unique_ptr<FileLock> lock(new FileLock(descriptor));
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return nullptr;
  return lock;
}

FileLock::~FileLock() {
  close(descriptor_);
}

}  // namespace orrelo

#include "platform/store/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace orrelo {

std::unique_ptr<FileLock> FileLock::acquire(const std::filesystem::path& file) {
  const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor < 0) return nullptr;
  std::unique_ptr<FileLock> lock(new FileLock(descriptor));
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return nullptr;
  return lock;
}

FileLock::~FileLock() {
  close(descriptor_);
}

}  // namespace orrelo

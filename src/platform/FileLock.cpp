#include "platform/FileLock.h"

#include <fcntl.h>
#include <map>
#include <mutex>
#include <sys/file.h>
#include <unistd.h>

namespace orrelo {
namespace {

struct HeldLock {
  int descriptor;
  pid_t owner;
};

std::mutex heldMutex;

std::map<std::filesystem::path, HeldLock>& heldLocks() {
  static auto* const locks = new std::map<std::filesystem::path, HeldLock>;
  return *locks;
}

}  // namespace

bool acquireFileLock(const std::filesystem::path& file) {
  const std::lock_guard lock(heldMutex);
  auto& held = heldLocks();
  if (const auto found = held.find(file); found != held.end()) {
    if (found->second.owner == getpid()) return true;
    // Inherited through fork: the lock is the parent's, and must end with the parent.
    close(found->second.descriptor);
    held.erase(found);
  }
  const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor < 0) return false;
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    close(descriptor);
    return false;
  }
  held.emplace(file, HeldLock{descriptor, getpid()});
  return true;
}

}  // namespace orrelo

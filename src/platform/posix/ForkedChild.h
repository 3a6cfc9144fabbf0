#pragma once

#include <orrelo/Export.h>

#include <atomic>
#include <cstdint>

namespace orrelo {

/// Changes in a forked child, so that state that belongs to one process can be recognised as its parent's.
/// It also recognises forks that run no handlers. Any thread; one load from memory after the first call.
std::uint64_t processGeneration();

/// Remembers the process to which an object belongs. The kit's threads do not exist in a forked child, and a
/// lock that another thread held at the fork stays locked there. Any thread.
class OwnerProcess {
 public:
  /// Makes this process the owner if there is none. True if this process is the owner.
  bool claim();
  /// True in a child that was forked, without replacing its program, after another process became the owner.
  bool isParent() const;

 private:
  std::atomic<std::uint64_t> generation_ = 0;
};

}  // namespace orrelo

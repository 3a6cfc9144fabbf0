#include "platform/posix/ForkedChild.h"

#include <atomic>
#include <sys/mman.h>
#include <unistd.h>

namespace orrelo {
namespace {

using Generation = std::atomic<std::uint64_t>;
static_assert(Generation::is_always_lock_free, "a lock could stay locked in a forked child");

/// Lies in a page that the kernel clears in a forked child. It is this one where no kernel clears it.
Generation notCleared = 0;
std::atomic<Generation*> generation = nullptr;
/// The latest generation, which a fork copies, so that the child's is larger.
Generation latest = 0;

Generation* mapCleared() {
  const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  void* const page = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (page == MAP_FAILED) return &notCleared;
  // Some emulators accept any advice, an invalid one too, and follow none.
  if (madvise(page, size, -1) != 0 && madvise(page, size, MADV_WIPEONFORK) == 0) {
    return static_cast<Generation*>(page);
  }
  munmap(page, size);
  return &notCleared;
}

// Takes no lock, which could stay locked in a forked child. If two threads come here at once, one page is
// never used.
Generation& create() {
  Generation* current = nullptr;
  auto* const mapped = mapCleared();
  if (!generation.compare_exchange_strong(current, mapped)) return *current;
  return *mapped;
}

}  // namespace

std::uint64_t processGeneration() {
  auto* here = generation.load(std::memory_order_acquire);
  if (here == nullptr) here = &create();
  auto current =
      here == &notCleared ? static_cast<std::uint64_t>(getpid()) : here->load(std::memory_order_relaxed);
  if (current == 0) {
    const auto next = ++latest;
    current = here->compare_exchange_strong(current, next) ? next : current;
  }
  return current;
}

bool OwnerProcess::claim() {
  const auto current = processGeneration();
  std::uint64_t owner = 0;
  return generation_.compare_exchange_strong(owner, current) || owner == current;
}

bool OwnerProcess::isParent() const {
  const auto owner = generation_.load(std::memory_order_relaxed);
  return owner != 0 && owner != processGeneration();
}

}  // namespace orrelo

#include "platform/posix/SystemRandom.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <pthread.h>
#include <random>
#include <sys/random.h>

namespace orrelo {
namespace {

/// A thread's buffer of random bytes: a system call for each identifier would be far too slow.
struct Store {
  std::array<std::uint8_t, 4096> bytes;
  std::size_t used = sizeof(bytes);
  unsigned generation = 0;
};

/// Counts the forks that led to this process, so that a child discards the bytes buffered by its parent.
std::atomic<unsigned> generation = 0;

unsigned currentGeneration() {
  [[maybe_unused]] static const int registered =
      pthread_atfork(nullptr, nullptr, [] { generation.fetch_add(1, std::memory_order_relaxed); });
  return generation.load(std::memory_order_relaxed);
}

void fillFromSystem(std::span<std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto count = getrandom(bytes.data(), bytes.size(), 0);
    if (count >= 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      // A sandbox may forbid getrandom.
      std::random_device device;
      std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(device()); });
      return;
    }
  }
}

}  // namespace

void SystemRandom::fill(std::span<std::uint8_t> bytes) {
  thread_local Store store;
  if (bytes.size() > store.bytes.size()) return fillFromSystem(bytes);
  const auto now = currentGeneration();
  if (store.generation != now || store.bytes.size() - store.used < bytes.size()) {
    fillFromSystem(store.bytes);
    store.used = 0;
    store.generation = now;
  }
  const auto from = store.bytes.begin() + static_cast<std::ptrdiff_t>(store.used);
  const auto end = from + static_cast<std::ptrdiff_t>(bytes.size());
  std::copy(from, end, bytes.begin());
  std::fill(from, end, std::uint8_t{0});  // values in use must not stay in the buffer
  store.used += bytes.size();
}

}  // namespace orrelo

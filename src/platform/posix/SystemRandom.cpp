#include "platform/posix/SystemRandom.h"

#include "platform/posix/ForkedChild.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <random>
#include <sys/random.h>

namespace orrelo {
namespace {

/// A thread's buffer of random bytes: a system call for each identifier would be far too slow.
struct Store {
  std::array<std::uint8_t, 4096> bytes;
  std::size_t used = sizeof(bytes);
  std::uint64_t generation = 0;  // of the process that has filled it
};

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
  const auto now = processGeneration();
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

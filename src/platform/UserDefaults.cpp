#include <orrelo/UserDefaults.h>

#include <utility>

namespace orrelo {

std::string UserDefaults::textOrInsert(std::string_view key, std::string candidate) {
  if (auto stored = text(key)) return *std::move(stored);
  set(key, candidate);
  return candidate;
}

}  // namespace orrelo

#include "c/CallStatus.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace orrelo::c {
namespace {

struct Outcome {
  orrelo_status status;
  std::array<char, 512> message;  // ends with a zero byte
};
// The main thread's is still used by what the host calls from `atexit`.
static_assert(std::is_trivially_destructible_v<Outcome>);

constinit thread_local Outcome outcome{ORRELO_OK, {}};

// The length of the longest beginning that has room for the zero byte and no part of a code point.
std::size_t lengthOf(std::string_view message) {
  constexpr auto room = sizeof(Outcome::message) - 1;
  if (message.size() <= room) return message.size();
  auto length = room;
  while (length > 0 && (static_cast<unsigned char>(message[length]) & 0xC0U) == 0x80U) --length;
  return length;
}

}  // namespace

orrelo_status finish(orrelo_status status, std::string_view message) noexcept {
  outcome.status = status;
  *std::copy_n(message.begin(), lengthOf(message), outcome.message.begin()) = '\0';
  return status;
}

}  // namespace orrelo::c

const char* orrelo_status_text(orrelo_status status) {
  static constexpr std::array texts{"success",
                                    "invalid argument",
                                    "unsupported event value",
                                    "the kit is not initialized",
                                    "timed out",
                                    "wrong thread",
                                    "failed"};
  static_assert(texts.size() == ORRELO_FAILED + 1);
  const auto index = static_cast<std::size_t>(status);
  return status >= 0 && index < texts.size() ? texts[index] : "unknown status";
}

orrelo_status orrelo_last_status() {
  return orrelo::c::outcome.status;
}

const char* orrelo_last_error() {
  return orrelo::c::outcome.message.data();
}

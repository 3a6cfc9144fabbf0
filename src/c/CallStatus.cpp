#include "c/CallStatus.h"

#include <array>

namespace orrelo::c {
namespace {

struct Outcome {
  orrelo_status status = ORRELO_OK;
  std::string message;
};

Outcome& outcome() {
  static thread_local Outcome outcome;
  return outcome;
}

}  // namespace

orrelo_status finish(orrelo_status status, std::string_view message) noexcept {
  outcome().status = status;
  try {
    outcome().message = message;
  } catch (...) {
    outcome().message.clear();
  }
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
  return orrelo::c::outcome().status;
}

const char* orrelo_last_error() {
  return orrelo::c::outcome().message.c_str();
}

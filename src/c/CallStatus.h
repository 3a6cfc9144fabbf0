#pragma once

#include <orrelo/Export.h>
#include <orrelo/UnsupportedEventValueException.h>
#include <orrelo/orrelo_values_c.h>

#include <exception>
#include <string>
#include <string_view>

namespace orrelo::c {

/// Ends a call of the C interface with a status and a message. Thrown within the interface only.
struct CallFailure {
  orrelo_status status;
  std::string message;
};

/// Stores the outcome of the calling thread's call, and returns the status.
ORRELO_EXPORT orrelo_status finish(orrelo_status status, std::string_view message = {}) noexcept;

/// The argument, or a CallFailure that names it if it is null.
template <class T>
T* required(T* argument, std::string_view name) {
  if (argument == nullptr) throw CallFailure{ORRELO_INVALID_ARGUMENT, std::string(name) + " is NULL"};
  return argument;
}

/// Runs `work` and stores its outcome: ORRELO_OK, or the status for what it throws.
template <class Work>
orrelo_status attempt(const Work& work) noexcept {
  try {
    work();
    return finish(ORRELO_OK);
  } catch (const CallFailure& failure) {
    return finish(failure.status, failure.message);
  } catch (const UnsupportedEventValueException& exception) {
    return finish(ORRELO_UNSUPPORTED_VALUE, exception.what());
  } catch (const std::exception& exception) {
    return finish(ORRELO_FAILED, exception.what());
  } catch (...) {
    return finish(ORRELO_FAILED, "an unknown exception");
  }
}

/// Runs the `work` of a call without a status, whose outcome is not stored. Exceptions end here.
template <class Work>
void attemptSilently(const Work& work) noexcept {
  try {
    work();
  } catch (...) {
    // There is nothing that the call could return.
  }
}

/// The same as `attempt` for a call that returns a pointer: what `make` returns, or null if it throws.
template <class Make>
auto attemptNew(const Make& make) noexcept -> decltype(make()) {
  decltype(make()) made = nullptr;
  attempt([&] { made = make(); });
  return made;
}

}  // namespace orrelo::c

#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <string_view>

namespace orrelo {

/// Reports a programming error: writes the message to standard error and aborts the process. Every caller is
/// listed in docs/stops.md.
[[noreturn]] ORRELO_EXPORT void preconditionFailure(std::string_view message);

/// Sets a handler that runs before the message is written. A handler that does not return, for example by
/// throwing, keeps the process alive; tests use that. An empty handler removes it.
void setPreconditionFailureHandler(std::function<void(std::string_view)> handler);

}  // namespace orrelo

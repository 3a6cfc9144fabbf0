#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <string_view>

namespace orrelo {

/// Ends the process for a programmer's error: the message goes to standard error, then abort. Every caller is
/// listed in docs/stops.md.
[[noreturn]] ORRELO_EXPORT void preconditionFailure(std::string_view message);

/// Replaces what happens before the abort. A handler that throws or leaves otherwise keeps the process alive;
/// that is for tests. An empty handler restores the default.
void setPreconditionFailureHandler(std::function<void(std::string_view)> handler);

}  // namespace orrelo

#pragma once

#include "base/Error.h"

#include <string_view>

namespace orrelo {

/// The message that a screen shows to the user in place of its content.
std::string_view errorText(const Error& error);

}  // namespace orrelo

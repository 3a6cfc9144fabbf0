#pragma once

#include "base/Error.h"

#include <string_view>

namespace orrelo {

/// What a screen says to the user in place of its content.
std::string_view errorText(const Error& error);

}  // namespace orrelo

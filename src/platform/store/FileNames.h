#pragma once

#include <string>
#include <string_view>

namespace orrelo {

/// Maps `name` to a valid and unique file name: its percent-encoded form, or a digest if that is too long.
std::string encodedFileName(std::string_view name);

}  // namespace orrelo

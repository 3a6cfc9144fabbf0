#pragma once

#include <string>
#include <string_view>

namespace orrelo {

/// A name that any file system takes as one file's name, different for different names: percent-encoded, or,
/// where that would be too long, a digest.
std::string encodedFileName(std::string_view name);

}  // namespace orrelo

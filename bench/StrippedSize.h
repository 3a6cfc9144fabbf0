#pragma once

#include <string>

namespace orrelo::bench {

/// The size of a library's file without its symbols, in KB of 1,000 bytes. Throws std::runtime_error if it
/// cannot be stripped.
double strippedSize(const std::string& library);

}  // namespace orrelo::bench

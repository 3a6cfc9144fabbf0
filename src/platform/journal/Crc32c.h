#pragma once

#include <cstdint>
#include <string_view>

namespace orrelo {

/// The CRC-32C (Castagnoli) of `bytes`. A sum of several pieces passes the sum of the former ones as `sum`.
std::uint32_t crc32c(std::string_view bytes, std::uint32_t sum = 0);

/// The same, computed without the processor's own instruction.
std::uint32_t portableCrc32c(std::string_view bytes, std::uint32_t sum = 0);

}  // namespace orrelo

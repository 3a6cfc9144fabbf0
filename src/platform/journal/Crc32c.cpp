#include "platform/journal/Crc32c.h"

#include <array>
#include <cstddef>
#include <cstring>

#if defined(__x86_64__)
#include <nmmintrin.h>
#elif defined(__aarch64__) && defined(__linux__)
#include <sys/auxv.h>
#endif

namespace orrelo {
namespace {

constexpr std::uint32_t reversedPolynomial = 0x82F63B78;

constexpr std::array<std::uint32_t, 256> makeTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    auto value = byte;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? reversedPolynomial : 0);
    table[byte] = value;
  }
  return table;
}

#if defined(__x86_64__)
__attribute__((target("sse4.2"))) std::uint32_t acceleratedCrc32c(std::string_view bytes, std::uint32_t sum) {
  std::uint64_t state = ~sum;
  std::size_t at = 0;
  for (; at + sizeof(std::uint64_t) <= bytes.size(); at += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof(word));
    state = _mm_crc32_u64(state, word);
  }
  auto small = static_cast<std::uint32_t>(state);
  for (; at < bytes.size(); ++at) small = _mm_crc32_u8(small, static_cast<unsigned char>(bytes[at]));
  return ~small;
}
#elif defined(__aarch64__) && defined(__linux__)
// Assembler, since g++ and clang have no common name for an instruction that the processor may lack.
std::uint32_t acceleratedCrc32c(std::string_view bytes, std::uint32_t sum) {
  auto state = ~sum;
  std::size_t at = 0;
  for (; at + sizeof(std::uint64_t) <= bytes.size(); at += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof(word));
    asm(".arch_extension crc\n\tcrc32cx %w0, %w0, %x1" : "+r"(state) : "r"(word));
  }
  for (; at < bytes.size(); ++at) {
    const std::uint32_t byte = static_cast<unsigned char>(bytes[at]);
    asm(".arch_extension crc\n\tcrc32cb %w0, %w0, %w1" : "+r"(state) : "r"(byte));
  }
  return ~state;
}
#endif

}  // namespace

std::uint32_t portableCrc32c(std::string_view bytes, std::uint32_t sum) {
  static constexpr auto table = makeTable();
  auto state = ~sum;
  for (const char each : bytes)
    state = table[(state ^ static_cast<unsigned char>(each)) & 0xFF] ^ (state >> 8);
  return ~state;
}

std::uint32_t crc32c(std::string_view bytes, std::uint32_t sum) {
#if defined(__x86_64__)
  const bool isAccelerated = __builtin_cpu_supports("sse4.2") != 0;  // reads a variable
  return isAccelerated ? acceleratedCrc32c(bytes, sum) : portableCrc32c(bytes, sum);
#elif defined(__aarch64__) && defined(__linux__)
  static const bool isAccelerated = (getauxval(AT_HWCAP) & HWCAP_CRC32) != 0;
  return isAccelerated ? acceleratedCrc32c(bytes, sum) : portableCrc32c(bytes, sum);
#else
  return portableCrc32c(bytes, sum);
#endif
}

}  // namespace orrelo

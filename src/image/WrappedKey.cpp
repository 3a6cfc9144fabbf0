#include "image/WrappedKey.h"

#include "platform/FileNames.h"

#include <array>
#include <openssl/evp.h>

namespace orrelo {
namespace {

std::string md5(std::string_view text) {
  static constexpr std::string_view digits = "0123456789abcdef";
  // Not for security: a machine that forbids the digest for that has it all the same.
  static const auto* const algorithm = EVP_MD_fetch(nullptr, "MD5", "-fips");
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned int size = 0;
  if (algorithm == nullptr ||
      EVP_Digest(text.data(), text.size(), bytes.data(), &size, algorithm, nullptr) != 1) {
    return encodedFileName(text);  // any name that no other text has
  }
  std::string hex(std::size_t{2} * size, '0');
  for (std::size_t i = 0; i < size; ++i) {
    hex[2 * i] = digits[bytes[i] >> 4U];
    hex[2 * i + 1] = digits[bytes[i] & 0x0FU];
  }
  return hex;
}

}  // namespace

WrappedKey::WrappedKey(std::string_view text) : key_(md5(text)), hash_(std::hash<std::string>()(key_)) {}

}  // namespace orrelo

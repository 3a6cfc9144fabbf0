#include "platform/store/FileNames.h"

#include "base/Ascii.h"

#include <array>
#include <openssl/sha.h>

namespace orrelo {
namespace {

constexpr std::size_t maximumLength = 120;

bool isUnescaped(char c) {
  return ascii::isAlphanumeric(c) || c == '-' || c == '_' || c == '.';
}

std::string digest(std::string_view name) {
  std::array<unsigned char, SHA256_DIGEST_LENGTH> bytes{};
  SHA256(reinterpret_cast<const unsigned char*>(name.data()), name.size(), bytes.data());
  std::string text;
  for (const auto byte : bytes) ascii::appendHex(text, byte);
  return text;
}

}  // namespace

std::string encodedFileName(std::string_view name) {
  std::string text;
  for (const char c : name) {
    // A leading dot would make a hidden file or the names "." and "..".
    if (isUnescaped(c) && !(c == '.' && text.empty())) {
      text += c;
    } else {
      ascii::appendHex(text += '%', static_cast<unsigned char>(c));
    }
    if (text.size() > maximumLength) return digest(name);
  }
  return text;
}

}  // namespace orrelo

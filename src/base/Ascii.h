#pragma once

#include <string>
#include <string_view>

namespace orrelo::ascii {

inline constexpr std::string_view lowerHexDigits = "0123456789abcdef";
inline constexpr std::string_view upperHexDigits = "0123456789ABCDEF";

constexpr bool isAlphanumeric(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The value of a hexadecimal digit in either case; -1 for other characters.
constexpr int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

/// Appends the two hexadecimal digits of a byte.
inline void appendHex(std::string& text, unsigned char byte, std::string_view digits = upperHexDigits) {
  text += digits[byte >> 4U];
  text += digits[byte & 0x0FU];
}

/// The text with each byte for which `isPlain` is false percent-encoded (RFC 3986, section 2.1).
template <class IsPlain>
std::string percentEncoded(std::string_view text, IsPlain isPlain) {
  std::string encoded;
  encoded.reserve(text.size());
  for (const char c : text) {
    if (isPlain(c)) {
      encoded += c;
    } else {
      appendHex(encoded += '%', static_cast<unsigned char>(c));
    }
  }
  return encoded;
}

/// Converts the letters A to Z to lower case, independently of the locale; keeps all other bytes.
std::string lowercased(std::string_view text);

/// The text without leading and trailing spaces, tabs and line ends.
std::string_view trimmed(std::string_view text);

}  // namespace orrelo::ascii

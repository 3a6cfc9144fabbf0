#include "base/Ascii.h"

#include <orrelo/Uuid.h>

#include <cstddef>

namespace orrelo {
namespace {

bool isHyphenPlace(std::size_t place) {
  return place == 8 || place == 13 || place == 18 || place == 23;
}

}  // namespace

Uuid Uuid::fromRandom(Bytes random) {
  random[6] = static_cast<std::uint8_t>((random[6] & 0x0F) | 0x40);  // version 4, RFC 4122 section 4.4
  random[8] = static_cast<std::uint8_t>((random[8] & 0x3F) | 0x80);  // the RFC's own variant
  return Uuid(random);
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
  if (text.size() != 36) return std::nullopt;
  Bytes bytes{};
  std::size_t digit = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    if (isHyphenPlace(place)) {
      if (text[place] != '-') return std::nullopt;
      continue;
    }
    const int value = ascii::hexValue(text[place]);
    if (value < 0) return std::nullopt;
    auto& byte = bytes[digit / 2];
    byte = static_cast<std::uint8_t>(byte << 4 | value);
    ++digit;
  }
  return Uuid(bytes);
}

std::string Uuid::text() const {
  std::string text;
  text.reserve(36);
  for (const auto byte : bytes_) {
    if (isHyphenPlace(text.size())) text += '-';
    ascii::appendHex(text, byte);
  }
  return text;
}

}  // namespace orrelo

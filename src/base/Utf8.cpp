#include "base/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <simdjson.h>

namespace orrelo::utf8 {
namespace {

std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

}  // namespace

bool isValid(std::string_view text) {
  return simdjson::validate_utf8(text.data(), text.size());
}

std::string repaired(std::string_view text) {
  if (isValid(text)) return std::string(text);
  constexpr std::string_view replacement = "\xEF\xBF\xBD";
  std::string result;
  while (!text.empty()) {
    const auto length = sequenceLength(static_cast<unsigned char>(text.front()));
    if (length > 0 && length <= text.size() && isValid(text.substr(0, length))) {
      result += text.substr(0, length);
      text.remove_prefix(length);
    } else {
      result += replacement;
      text.remove_prefix(1);
    }
  }
  return result;
}

std::string beginning(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t begun = 0; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && begun++ == count) break;
  }
  return std::string(text.substr(0, end)) + (end < text.size() ? "…" : "");
}

std::size_t length(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace orrelo::utf8

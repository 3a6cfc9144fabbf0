#include "base/Color.h"

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "base/preconditionFailure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace orrelo {
namespace {

// Unicode's white space characters; text pasted from a document may contain more than those of ASCII.
constexpr std::array<std::string_view, 25> blanks{
    " ",      "\t",     "\n",     "\v",     "\f",     "\r",     "\u0085", "\u00A0", "\u1680",
    "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
    "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"};

// False only for the characters of ASCII that are visible.
bool mayBelongToBlank(char c) {
  return c <= ' ' || c > '~';
}

std::string_view trimmed(std::string_view text) {
  if (!text.empty() && !mayBelongToBlank(text.front()) && !mayBelongToBlank(text.back())) return text;
  const auto leads = [&text](std::string_view blank) { return text.starts_with(blank); };
  const auto ends = [&text](std::string_view blank) { return text.ends_with(blank); };
  for (auto blank = blanks.end();
       (blank = std::find_if(blanks.begin(), blanks.end(), leads)) != blanks.end();)
    text.remove_prefix(blank->size());
  for (auto blank = blanks.end(); (blank = std::find_if(blanks.begin(), blanks.end(), ends)) != blanks.end();)
    text.remove_suffix(blank->size());
  return text;
}

std::uint32_t scanHex(std::string_view text) {
  if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
  std::uint32_t number = 0;
  for (const char c : text) {
    const int digit = ascii::hexValue(c);
    if (digit < 0) break;
    number = number << 4 | static_cast<std::uint32_t>(digit);
  }
  return number;
}

std::int64_t wholeComponent(double component) {
  const double scaled = component * 255.0;
  if (!(std::abs(scaled) < 0x1p62)) preconditionFailure("A colour component is not a finite number");
  return static_cast<std::int64_t>(scaled);
}

}  // namespace

Color Color::fromHex(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('#')) text.remove_prefix(1);
  if (text.empty() || utf8::length(text) >= 7) return Color{};
  const auto number = scanHex(text);
  const auto component = [number](unsigned shift) {
    return static_cast<double>(number >> shift & 0xFF) / 255.0;
  };
  return Color{component(16), component(8), component(0), 1.0};
}

std::string Color::hexText() const {
  const auto number = wholeComponent(red) << 16 | wholeComponent(green) << 8 | wholeComponent(blue);
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(number));
  return text.data();
}

}  // namespace orrelo

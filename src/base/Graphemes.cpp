#include "base/GraphemeBreaks.h"
#include "base/Utf8.h"

#include <algorithm>

namespace orrelo::utf8 {
namespace {

/// The values of the property Grapheme_Cluster_Break. L, V and T are the parts of Hangul syllables; LV and
/// LVT are whole syllables.
enum class Break {
  other,
  carriageReturn,
  lineFeed,
  control,
  extend,
  zeroWidthJoiner,
  spacingMark,
  prepend,
  regionalIndicator,
  l,
  v,
  t,
  lv,
  lvt,
  extendedPictographic
};

bool isBetween(char32_t c, char32_t first, char32_t last) {
  return first <= c && c <= last;
}

template <std::size_t N>
bool isIn(const std::array<char32_t, N>& bounds, char32_t c) {
  return (std::upper_bound(bounds.begin(), bounds.end(), c) - bounds.begin()) % 2 != 0;
}

Break breakOf(char32_t c) {
  if (isBetween(c, 0xAC00, 0xD7A3)) return (c - 0xAC00) % 28 == 0 ? Break::lv : Break::lvt;
  if (isBetween(c, 0x1100, 0x115F) || isBetween(c, 0xA960, 0xA97C)) return Break::l;
  if (isBetween(c, 0x1160, 0x11A7) || isBetween(c, 0xD7B0, 0xD7C6)) return Break::v;
  if (isBetween(c, 0x11A8, 0x11FF) || isBetween(c, 0xD7CB, 0xD7FB)) return Break::t;
  if (isBetween(c, 0x1F1E6, 0x1F1FF)) return Break::regionalIndicator;
  if (c == '\r') return Break::carriageReturn;
  if (c == '\n') return Break::lineFeed;
  if (c == 0x200D) return Break::zeroWidthJoiner;
  if (isIn(graphemeBreak::extend, c)) return Break::extend;
  if (isIn(graphemeBreak::extendedPictographic, c)) return Break::extendedPictographic;
  if (isIn(graphemeBreak::spacingMark, c)) return Break::spacingMark;
  if (isIn(graphemeBreak::control, c)) return Break::control;
  if (isIn(graphemeBreak::prepend, c)) return Break::prepend;
  return Break::other;
}

bool isControl(Break value) {
  return value == Break::carriageReturn || value == Break::lineFeed || value == Break::control;
}

/// The rules of Unicode Standard Annex 29 that depend only on two neighbouring characters.
bool areJoined(Break before, Break after) {
  using enum Break;
  if (before == carriageReturn && after == lineFeed) return true;                             // GB3
  if (isControl(before) || isControl(after)) return false;                                    // GB4, GB5
  if (before == l && (after == l || after == v || after == lv || after == lvt)) return true;  // GB6
  if ((before == lv || before == v) && (after == v || after == t)) return true;               // GB7
  if ((before == lvt || before == t) && after == t) return true;                              // GB8
  if (after == extend || after == zeroWidthJoiner || after == spacingMark) return true;       // GB9, GB9a
  return before == prepend;                                                                   // GB9b
}

char32_t takeCodePoint(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t wanted = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  const auto length = std::min(wanted, text.size());
  char32_t c = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) c = c << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
  text.remove_prefix(length);
  return c;
}

}  // namespace

std::size_t graphemeCount(std::string_view text) {
  enum class Pictograph { none, started, joining };
  auto pictograph = Pictograph::none;
  bool hasUnpairedIndicator = false;
  auto before = Break::control;
  std::size_t count = 0;
  while (!text.empty()) {
    const auto after = breakOf(takeCodePoint(text));
    const bool isPictograph = after == Break::extendedPictographic;
    const bool isIndicator = after == Break::regionalIndicator;
    const bool isJoined = areJoined(before, after) ||
                          (pictograph == Pictograph::joining && isPictograph) ||  // GB11
                          (hasUnpairedIndicator && isIndicator);                  // GB12, GB13
    if (!isJoined) ++count;
    if (isPictograph) {
      pictograph = Pictograph::started;
    } else if (pictograph == Pictograph::started && after == Break::zeroWidthJoiner) {
      pictograph = Pictograph::joining;
    } else if (pictograph != Pictograph::started || after != Break::extend) {
      pictograph = Pictograph::none;
    }
    hasUnpairedIndicator = isIndicator && !hasUnpairedIndicator;
    before = after;
  }
  return count;
}

}  // namespace orrelo::utf8

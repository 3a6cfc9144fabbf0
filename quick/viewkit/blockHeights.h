#pragma once

#include "quick/bridge/TextMeasure.h"

#include <algorithm>

namespace orrelo::quick {

/// The distance between an information block and the edges of the page: `Theme.blockMargin`.
constexpr double blockMargin = 25.0;

/// The height of TitleRows.
inline double titleRowsHeight(const QString& first, const QString& second, double width,
                              const TextMeasure& measure) {
  constexpr double size = 24.0;
  constexpr double maximumScale = 1.6;
  constexpr double padding = 12.0;
  return measure.height(first, width, {.size = size, .maximumScale = maximumScale}) +
         measure.height(second, width, {.size = size, .isBold = true, .maximumScale = maximumScale}) +
         padding;
}

/// The height of a GuideLine with its icon.
inline double guideLineHeight(const QString& text, double size, double width, const TextMeasure& measure) {
  if (text.isEmpty()) return 0.0;
  const double icon = size * measure.textScale();
  const TextMeasure::Style style{.size = size};
  const double textWidth = std::min(measure.width(text, style), width - icon - 5.0);
  return std::max(32.0, std::max(icon, measure.height(text, textWidth, style)) + 8.0);
}

}  // namespace orrelo::quick

#include "quick/modular/content/InformationBoxBridge.h"

#include <algorithm>

namespace orrelo::quick {

// The layout of InformationBox.qml.
double InformationBoxBridge::measuredHeight(double width, const TextMeasure& measure) const {
  constexpr TextMeasure::Style leftStyle{.size = 14.0};
  constexpr TextMeasure::Style rightStyle{.size = 14.0, .isBold = true};
  constexpr double spacing = 10.0;
  constexpr double rightSpacing = 12.0;
  const double available = width - 2 * 24.0;
  const bool hasPicture = image->hasContent();
  const double picture = std::min(imageWidth(), available);
  const double textWidth = available - spacing - picture;
  const double leftNatural = leftText.isEmpty() ? 0.0 : measure.width(leftText, leftStyle);
  const double rightNatural = rightText.isEmpty() ? 0.0 : measure.width(rightText, rightStyle);
  const bool isStacked = leftNatural + spacing + picture + rightSpacing + rightNatural > available;

  const bool isPictureBelow = textWidth < std::min(leftNatural, available / 2);
  const double leftWidth = std::min(leftNatural, isPictureBelow ? available : textWidth);
  const double leftHeight = measure.height(leftText, leftWidth, leftStyle);
  const bool hasBoth = hasPicture && leftHeight > 0.0;
  const double gap = hasBoth ? spacing : 0.0;
  const double pictureHeight = hasPicture ? imageHeight : 0.0;
  const double gridHeight =
      isPictureBelow ? leftHeight + gap + pictureHeight : std::max(leftHeight, pictureHeight);
  const double gridWidth = isPictureBelow ? std::max(leftWidth, hasPicture ? picture : 0.0)
                                          : leftWidth + gap + (hasPicture ? picture : 0.0);

  const double rightWidth = std::max(0.0, isStacked ? available : available - gridWidth - rightSpacing);
  const double rightHeight = measure.height(rightText, rightWidth, rightStyle);
  const double lines = isStacked ? gridHeight + 4.0 + rightHeight : std::max(gridHeight, rightHeight);
  return std::max(84.0, lines + 32.0);
}

}  // namespace orrelo::quick

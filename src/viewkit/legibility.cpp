#include "viewkit/legibility.h"

#include <algorithm>
#include <cmath>

namespace orrelo {
namespace {

// WCAG 2.1 asks for this ratio of large or bold text, which is what the service's colours meet.
constexpr double sufficientContrast = 3.0;

double bounded(double component) {
  return std::isfinite(component) ? std::clamp(component, 0.0, 1.0) : 0.0;
}

Color bounded(const Color& color) {
  return {bounded(color.red), bounded(color.green), bounded(color.blue), bounded(color.alpha)};
}

// Relative luminance, WCAG 2.1.
double luminance(const Color& color) {
  const auto linear = [](double value) {
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

Color paled(const Color& color) {
  const auto mixed = [](double component) { return 0.2 * component + 0.8 * 0.92; };
  return {mixed(color.red), mixed(color.green), mixed(color.blue), color.alpha};
}

}  // namespace

double contrastToWhite(const Color& color) {
  return 1.05 / (luminance(bounded(color)) + 0.05);
}

Color textColorOn(const Color& background) {
  return contrastToWhite(background) >= sufficientContrast ? Color{1.0, 1.0, 1.0, 1.0} : plainTextColor;
}

Color legibleOnWhite(const Color& color) {
  auto legible = bounded(color);
  while (contrastToWhite(legible) < sufficientContrast) {
    for (auto* const component : {&legible.red, &legible.green, &legible.blue}) *component /= 1.05;
  }
  return legible;
}

Color buttonFill(const Color& color, bool isEnabled) {
  return isEnabled ? bounded(color) : paled(bounded(color));
}

Color buttonTextColor(const Color& color, bool isEnabled) {
  return isEnabled ? textColorOn(color) : disabledTextColor;
}

}  // namespace orrelo

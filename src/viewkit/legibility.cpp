#include "viewkit/legibility.h"

#include <algorithm>
#include <cmath>

namespace orrelo {
namespace {

// The minimum that WCAG 2.1 requires for large or bold text, which is what the service's colours are used
// for.
constexpr double sufficientContrast = 3.0;

double clamped(double component) {
  return std::isfinite(component) ? std::clamp(component, 0.0, 1.0) : 0.0;
}

Color clamped(const Color& color) {
  return {clamped(color.red), clamped(color.green), clamped(color.blue), clamped(color.alpha)};
}

// The relative luminance of WCAG 2.1.
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
  return 1.05 / (luminance(clamped(color)) + 0.05);
}

Color textColorOn(const Color& background) {
  return contrastToWhite(background) >= sufficientContrast ? Color{1.0, 1.0, 1.0, 1.0} : plainTextColor;
}

Color legibleOnWhite(const Color& color) {
  auto legible = clamped(color);
  while (contrastToWhite(legible) < sufficientContrast) {
    for (auto* const component : {&legible.red, &legible.green, &legible.blue}) *component /= 1.05;
  }
  return legible;
}

Color buttonFill(const Color& color, bool isEnabled) {
  return isEnabled ? clamped(color) : paled(clamped(color));
}

Color buttonTextColor(const Color& color, bool isEnabled) {
  return isEnabled ? textColorOn(color) : disabledTextColor;
}

}  // namespace orrelo

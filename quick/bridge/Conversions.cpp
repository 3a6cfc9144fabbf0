#include "quick/bridge/Conversions.h"

#include <algorithm>
#include <cmath>

namespace orrelo::quick {
namespace {

float component(double value) {
  return std::isfinite(value) ? static_cast<float>(std::clamp(value, 0.0, 1.0)) : 0.0F;
}

double luminance(const QColor& color) {
  const auto linear = [](double value) {
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

// For large or bold text, which is what brand colours meet.
constexpr double sufficientContrast = 3.0;

double contrastToWhite(const QColor& color) {
  return 1.05 / (luminance(color) + 0.05);
}

QColor dimmed(const QColor& color) {
  constexpr float share = 0.2F;
  const auto mixed = [](float value) { return share * value + (1.0F - share) * 0.92F; };
  return QColor::fromRgbF(mixed(color.redF()), mixed(color.greenF()), mixed(color.blueF()), color.alphaF());
}

}  // namespace

QColor toQt(const Color& color) {
  return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                          component(color.alpha));
}

QColor plainTextColor() {
  return QColor::fromRgbF(0.239F, 0.243F, 0.247F);
}

QColor textColorOn(const QColor& background) {
  return contrastToWhite(background) >= sufficientContrast ? QColor(Qt::white) : plainTextColor();
}

QColor legibleOnWhite(QColor color) {
  while (contrastToWhite(color) < sufficientContrast) color = color.darker(105);
  return color;
}

QColor buttonFill(const Color& color, bool isEnabled) {
  return isEnabled ? toQt(color) : dimmed(toQt(color));
}

QColor buttonTextColor(const Color& color, bool isEnabled) {
  return isEnabled ? textColorOn(toQt(color)) : QColor(0x6b, 0x6d, 0x70);
}

QUrl moduleFile(const QString& path) {
  return QUrl(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Kit/") + path);
}

QUrl assetFile(std::string_view name) {
  return name.empty() ? QUrl() : moduleFile(QStringLiteral("assets/%1.svg").arg(toQt(name)));
}

}  // namespace orrelo::quick

#include "quick/bridge/Conversions.h"

#include <algorithm>
#include <cmath>

namespace orrelo::quick {
namespace {

float component(double value) {
  return std::isfinite(value) ? static_cast<float>(std::clamp(value, 0.0, 1.0)) : 0.0F;
}

}  // namespace

QColor toQt(const Color& color) {
  return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                          component(color.alpha));
}

QUrl moduleFile(const QString& path) {
  return QUrl(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Kit/") + path);
}

QUrl assetFile(std::string_view name) {
  return name.empty() ? QUrl() : moduleFile(QStringLiteral("assets/%1.svg").arg(toQt(name)));
}

}  // namespace orrelo::quick

#pragma once

#include "base/Color.h"

#include <QColor>
#include <QString>
#include <QUrl>
#include <string_view>

namespace orrelo::quick {

inline QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QColor toQt(const Color& color);

/// The URL of a file in the module Orrelo.Kit, such as "StackView.qml".
QUrl moduleFile(const QString& path);
/// The URL of one of the kit's own images; empty for an empty name.
QUrl assetFile(std::string_view name);

}  // namespace orrelo::quick

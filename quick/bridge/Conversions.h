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

/// A file of the module Orrelo.Kit: "StackView.qml".
QUrl moduleFile(const QString& path);
/// One of the kit's own pictures, by its name; empty for an empty name.
QUrl assetFile(std::string_view name);

}  // namespace orrelo::quick

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

/// The kit's dark grey for text.
QColor plainTextColor();
/// Of a button of this colour, and of what is written on it.
QColor buttonFill(const Color& color, bool isEnabled);
QColor buttonTextColor(const Color& color, bool isEnabled);
/// White as designed, or the dark grey on a brand colour so light that white could not be read on it.
QColor textColorOn(const QColor& background);
/// A brand colour as designed, or darkened as far as it takes to be read on white.
QColor legibleOnWhite(QColor color);

/// A file of the module Orrelo.Kit: "StackView.qml".
QUrl moduleFile(const QString& path);
/// One of the kit's own pictures, by its name; empty for an empty name.
QUrl assetFile(std::string_view name);

}  // namespace orrelo::quick

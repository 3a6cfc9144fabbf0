#pragma once

#include <orrelo/Export.h>

#include <QUrl>

namespace orrelo::quick {

/// The QML file that draws web pages. It is set by the optional library with the browser engine, and empty
/// without it.
ORRELO_EXPORT QUrl webPageDelegate();
ORRELO_EXPORT void setWebPageDelegate(const QUrl& file);

}  // namespace orrelo::quick

#pragma once

#include <orrelo/Export.h>

#include <QUrl>

namespace orrelo::quick {

/// The file that draws web pages: that of a library with a browser engine, which a host may leave out. Empty
/// until there is one.
ORRELO_EXPORT QUrl webPageDelegate();
ORRELO_EXPORT void setWebPageDelegate(const QUrl& file);

}  // namespace orrelo::quick

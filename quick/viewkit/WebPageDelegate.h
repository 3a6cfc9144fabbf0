#pragma once

#include <orrelo/Export.h>

#include <QUrl>

namespace orrelo::quick {

/// The QML files that draw the web pages of blocks and the page of the exchange. They are set by the optional
/// library with the browser engine, and empty without it.
ORRELO_EXPORT QUrl webPageDelegate();
ORRELO_EXPORT QUrl exchangePageDelegate();
ORRELO_EXPORT void setWebPageDelegates(const QUrl& webPage, const QUrl& exchangePage);

}  // namespace orrelo::quick

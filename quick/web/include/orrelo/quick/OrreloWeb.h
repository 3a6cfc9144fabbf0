#pragma once

#include <orrelo/Export.h>

namespace orrelo::quick {

/// Enables web pages within the kit's pages. Call it once, before the QGuiApplication is created:
///
///     orrelo::quick::initializeWeb();
///     QGuiApplication app(argc, argv);
///
/// If it is not called, or called after the application has been created (which is logged), the area of a web
/// page stays empty. All data that pages store, from cookies and cache to the history of their addresses,
/// lies below the kit's own folders and is separate from the host's.
ORRELO_EXPORT void initializeWeb();

}  // namespace orrelo::quick

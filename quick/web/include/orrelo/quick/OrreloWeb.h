#pragma once

#include <orrelo/Export.h>

namespace orrelo::quick {

/// Lets the kit's pages show web pages within them. Once, before the QGuiApplication is made:
///
///     orrelo::quick::initializeWeb();
///     QGuiApplication app(argc, argv);
///
/// Without it, and after the application has been made (then with a log line), the place of a web page stays
/// empty. What pages keep, from cookies and cache to the history of their addresses, lies below the kit's own
/// folders, apart from the host's.
ORRELO_EXPORT void initializeWeb();

}  // namespace orrelo::quick

#pragma once

#include <QLoggingCategory>

namespace orrelo::quick {

/// The log of `orrelo::web`.
Q_DECLARE_LOGGING_CATEGORY(webLog)

}  // namespace orrelo::quick

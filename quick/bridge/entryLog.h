#pragma once

#include <QLoggingCategory>

namespace orrelo::quick {

/// The log of the views that a host places on its own pages.
Q_DECLARE_LOGGING_CATEGORY(entryLog)

}  // namespace orrelo::quick

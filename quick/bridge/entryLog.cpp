#include "quick/bridge/entryLog.h"

namespace orrelo::quick {

Q_LOGGING_CATEGORY(entryLog, "orrelo.entry")

}  // namespace orrelo::quick

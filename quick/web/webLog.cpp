#include "quick/web/webLog.h"

namespace orrelo::quick {

Q_LOGGING_CATEGORY(webLog, "orrelo.web")

}  // namespace orrelo::quick

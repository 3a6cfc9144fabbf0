#pragma once

#include "base/Error.h"

namespace orrelo {

/// Raised when the exchange is requested although the service's configuration does not enable it.
enum class ExternalPointPluginError { isNotEnabled };
Error makeError(ExternalPointPluginError error);

}  // namespace orrelo

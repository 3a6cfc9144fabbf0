#include "rewards/externalpoint/ExternalPointPluginError.h"

namespace orrelo {

Error makeError(ExternalPointPluginError) {
  return Error("ExternalPointPluginError", "isNotEnabled");
}

}  // namespace orrelo

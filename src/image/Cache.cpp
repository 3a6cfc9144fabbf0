#include "image/Cache.h"

namespace orrelo {

Error makeError(CacheError) {
  return Error("CacheError", "dataConversion");
}

}  // namespace orrelo

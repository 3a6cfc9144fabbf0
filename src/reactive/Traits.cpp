#include "reactive/Traits.h"

namespace orrelo::reactive {

Error makeError(ReactiveError) {
  return Error("ReactiveError", "moreThanOneElement");
}

}  // namespace orrelo::reactive

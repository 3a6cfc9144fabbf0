// The size of the front's library as a host ships it.
#include "StrippedSize.h"
#include "Targets.h"
#include "screens/ScreenBenches.h"

namespace orrelo::bench {

void addFrontSize() {
  add({{"liborrelo_quick stripped, KB", "", 1574.52}},
      [] { return std::vector{strippedSize(ORRELO_QUICK_LIBRARY)}; });
}

}  // namespace orrelo::bench

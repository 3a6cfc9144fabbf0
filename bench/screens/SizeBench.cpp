// The size of the front's library as a host ships it.
#include "StrippedSize.h"
#include "Targets.h"
#include "screens/ScreenBenches.h"

namespace orrelo::bench {

void addFrontSize() {
#if ORRELO_IS_SHARED
  // The size that g++ 12 gave before relocations were packed.
  constexpr double formerSize = 1575.0;
  add({{"liborrelo_quick stripped, KB", "", formerSize}},
      [] { return std::vector{strippedSize(ORRELO_QUICK_LIBRARY)}; });
#endif
}

}  // namespace orrelo::bench

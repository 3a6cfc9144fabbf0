#include "quick/bridge/Kinds.h"

#include <array>

namespace orrelo::quick {

// A folder with views or screens has its rows in a kinds.cpp of its own, and is named here and below.
Kinds imageKinds();
Kinds viewkitKinds();
Kinds modularKinds();
Kinds contentKinds();
Kinds rouletteKinds();
Kinds scratchKinds();
Kinds campaignKinds();
Kinds attendanceKinds();
Kinds optInMarketingKinds();
Kinds resultKinds();
Kinds stampKinds();
Kinds updateKinds();
Kinds hostKinds();

std::span<const Kinds> allKinds() {
  static const std::array folders{
      imageKinds(),   viewkitKinds(),  modularKinds(),    contentKinds(),        rouletteKinds(),
      scratchKinds(), campaignKinds(), attendanceKinds(), optInMarketingKinds(), resultKinds(),
      stampKinds(),   updateKinds(),   hostKinds(),
  };
  return folders;
}

}  // namespace orrelo::quick

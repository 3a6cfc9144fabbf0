#include "quick/bridge/Kinds.h"

#include "quick/campaign/attendance/AttendanceCampaignBridge.h"

#include <array>

namespace orrelo::quick {

Kinds attendanceKinds() {
  static constexpr std::array views{
      viewKind<AttendanceCampaignView, AttendanceCampaignBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_AttendanceCampaignBridge.cpp"
#include "moc_CalendarCellBridge.cpp"

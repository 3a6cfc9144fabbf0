#include "quick/bridge/Kinds.h"

#include "quick/campaign/attendance/AttendanceCampaignBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<AttendanceCampaignView, AttendanceCampaignBridge>(),
};

}  // namespace

Kinds attendanceKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_AttendanceCampaignBridge.cpp"
#include "moc_CalendarCellBridge.cpp"

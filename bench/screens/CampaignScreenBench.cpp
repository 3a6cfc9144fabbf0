// Campaign screens: the time from the service's bytes to the first frame, and the memory that stays in use.
#include "campaign/attendance/AttendanceCampaignView.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"
#include "screens/growth.h"

namespace orrelo::bench {
namespace {

// The picture is as large as one that a service sends.
Stage& stage() {
  static auto& stage = [&]() -> Stage& {
    auto& answers = Stage::shared().service().answers;
    answers["/campaigns/attendance"] = {200, test::campaignReply(test::richAttendancePage())};
    answers["/attend"] = {200, test::richAttendancePage()};
    answers["/gift.png"] = {200, pngFile(192, 192)};
    return Stage::shared();
  }();
  return stage;
}

std::vector<double> measureAttendance() {
  std::vector<double> openings;
  std::vector<double> rebuildings;
  for (int i = 0; i < 20; ++i) {
    openings.push_back(stage().open("attendance"));
    const auto page = std::dynamic_pointer_cast<AttendanceCampaignView>(stage().content());
    rebuildings.push_back(stage().change([&] { page->actionView->onClick(); }));
    stage().close();
  }
  return {quantile(openings, 0.5), quantile(rebuildings, 0.5)};
}

}  // namespace

void addCampaignScreens() {
  add({{"campaign screen, from the bytes to the first frame", "ms", 9},
       {"campaign screen, rebuilt after a participation", "ms", 25}},
      &measureAttendance);
  add({{"resident memory that 200 openings add", "MiB", 1}}, [] {
    return growthBy([] {
      stage().open("attendance");
      stage().close();
    });
  });
}

}  // namespace orrelo::bench

#include "QuickTest.h"

namespace orrelo::test {
namespace {

class AttendanceTest : public QuickTest {
 protected:
  AttendanceTest() { service_->answers["/campaigns/c-1"] = {200, campaign(attendancePage())}; }
};

TEST_F(AttendanceTest, FirstLight) {
  showCampaign();
  EXPECT_TRUE(waitForNamed("출석체크 하기"));
  grab("attendance-390");
}

}  // namespace
}  // namespace orrelo::test

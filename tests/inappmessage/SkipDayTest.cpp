#include "inappmessage/InAppMessageSkipTimeCheckService.h"
#include "support/TestPlatform.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;

class SkipDayTest : public testing::Test {
 protected:
  ~SkipDayTest() override { kept_ ? setenv("TZ", kept_->c_str(), 1) : unsetenv("TZ"); }

  void at(std::chrono::seconds sinceEpoch, const char* zone) {
    platform_.clock->setNow(Date(sinceEpoch));
    setenv("TZ", zone, 1);
  }

  const std::optional<std::string> kept_ =
      getenv("TZ") != nullptr ? std::optional<std::string>(getenv("TZ")) : std::nullopt;
  TestPlatform platform_;
  const std::shared_ptr<UserDefaults> defaults_ = platform_.defaults->standard();
  InAppMessageSkipTimeCheckServiceImpl service_{defaults_};
};

// 2024-03-09 15:30 in UTC is the 10th in Seoul and the 9th in New York.
constexpr std::chrono::seconds skipped = 1'709'998'200s;

TEST_F(SkipDayTest, ASkipHoldsWhileTheDevicesDateIsTheSame) {
  at(skipped, "Asia/Seoul");
  EXPECT_FALSE(service_.hasSkippedToday());
  service_.recordSkipToday();
  EXPECT_EQ(defaults_->text("inAppMessageLastSkipDay"), "2024-03-10");
  struct Case {
    std::chrono::seconds time;
    const char* zone;
    bool isSkipped;
  };
  for (const auto& [time, zone, isSkipped] : {
           Case{skipped + 23h + 29min, "Asia/Seoul", true},
           Case{skipped + 23h + 30min, "Asia/Seoul", false},
           Case{skipped - 30min - 1s, "Asia/Seoul", false},  // the clock was set back
           Case{skipped + 365 * 24h, "Asia/Seoul", false},
           Case{skipped, "Asia/Seoul", true},  // and corrected
           Case{skipped, "America/New_York", false},
           Case{skipped + 14h, "America/New_York", true},
       }) {
    at(time, zone);
    EXPECT_EQ(service_.hasSkippedToday(), isSkipped) << (time - skipped).count() << " s in " << zone;
  }
}

}  // namespace
}  // namespace orrelo::test

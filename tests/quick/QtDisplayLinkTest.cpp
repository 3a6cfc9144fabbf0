#include "quick/platform/QtDisplayLink.h"
#include "support/Twins.h"

#include <QTest>
#include <QWindow>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;

/// The test calls `callDue` at times of its own instead of the timer.
class QtDisplayLinkTest : public testing::Test {
 protected:
  void show(QWindow& window) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  }
  DisplayLink::Registration follow() {
    return link_.start([this] { ++ticks_; });
  }
  /// The ticks that a timer which fires after `span` gives.
  int after(std::chrono::microseconds span) {
    clock_->advance(span);
    const int before = ticks_;
    link_.callDue();
    return ticks_ - before;
  }

  std::shared_ptr<ManualClock> clock_ = std::make_shared<ManualClock>();
  double refreshRate_ = 60;
  quick::QtDisplayLink link_{clock_, [this] { return refreshRate_; }};
  int ticks_ = 0;
};

TEST_F(QtDisplayLinkTest, TicksByTimeHoweverLateTheTimerIs) {
  QWindow window;
  show(window);
  const auto registration = follow();
  EXPECT_EQ(after(16ms), 0);
  EXPECT_EQ(after(1ms), 1);
  EXPECT_EQ(after(83ms), 5);
  EXPECT_EQ(after(900ms), 54) << "60 in the first second";
  int inAMinute = 0;
  for (int i = 0; i < 60'000 / 17; ++i) inAMinute += after(17ms);
  EXPECT_EQ(inAMinute, 60'000 / 17 * 17 * 60 / 1000);
  EXPECT_EQ(after(1100ms), 0) << "starts anew after a stall";
  EXPECT_EQ(after(17ms), 1);
}

TEST_F(QtDisplayLinkTest, FollowsTheScreensRateFromItsFirstRegistrationOn) {
  for (const auto& [refreshRate, expected] : {std::pair(0.0, 60), {59.94, 60}, {119.88, 60}, {144.0, 60}}) {
    refreshRate_ = refreshRate;
    EXPECT_EQ(link_.ticksPerSecond(), expected) << refreshRate;
  }
  QWindow window;
  show(window);
  refreshRate_ = 120;
  auto registration = follow();
  EXPECT_EQ(after(100ms), 12);
  refreshRate_ = 60;
  EXPECT_EQ(link_.ticksPerSecond(), 120) << "an animation keeps the rate that it began with";
  EXPECT_EQ(after(100ms), 12);
  registration.reset();
  registration = follow();
  EXPECT_EQ(link_.ticksPerSecond(), 60);
  EXPECT_EQ(after(100ms), 6);
}

TEST_F(QtDisplayLinkTest, TheTimerRunsWhileSomebodyListensAndAWindowIsExposed) {
  auto registration = follow();
  EXPECT_FALSE(link_.isRunning()) << "no window";
  QWindow window;
  QWindow other;
  show(window);
  show(other);
  EXPECT_TRUE(QTest::qWaitFor([&] { return link_.isRunning(); }, 20'000));
  other.hide();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !other.isExposed(); }, 20'000));
  QCoreApplication::processEvents();
  EXPECT_TRUE(link_.isRunning());
  window.hide();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !link_.isRunning(); }, 20'000));
  show(window);
  EXPECT_TRUE(QTest::qWaitFor([&] { return link_.isRunning(); }, 20'000));
  registration.reset();
  EXPECT_EQ(after(50ms), 0);
  EXPECT_FALSE(link_.isRunning());
}

TEST_F(QtDisplayLinkTest, ATickMayEndItselfAndBeginAnother) {
  QWindow window;
  show(window);
  DisplayLink::Registration second;
  DisplayLink::Registration first = link_.start([&] {
    first.reset();
    second = follow();
  });
  EXPECT_EQ(after(34ms), 1) << "the second tick";
  EXPECT_TRUE(link_.isRunning());
}

}  // namespace
}  // namespace orrelo::test

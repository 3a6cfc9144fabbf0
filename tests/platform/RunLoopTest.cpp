#include <orrelo/MainLoop.h>

#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class RunLoopTest : public ::testing::Test {
 protected:
  RunLoop& loop_ = RunLoop::main();
  std::vector<int> order_;

  MainLoop::Task note(int number) {
    return [this, number] { order_.push_back(number); };
  }
};

TEST_F(RunLoopTest, runsTasksInTheOrderOfPostingAlsoThosePostedMeanwhile) {
  loop_.post([this] {
    order_.push_back(1);
    loop_.post(note(4));
    loop_.postAfter(0us, [this] { loop_.stop(); });
  });
  loop_.post([] { throw std::runtime_error("harmless"); });
  loop_.post(note(2));
  loop_.post(note(3));
  EXPECT_TRUE(order_.empty());
  loop_.run();
  EXPECT_THAT(order_, ElementsAre(1, 2, 3, 4));
}

TEST_F(RunLoopTest, runsDelayedTasksByDueTime) {
  const auto start = std::chrono::steady_clock::now();
  loop_.postAfter(50ms, [this] {
    order_.push_back(2);
    loop_.stop();
  });
  loop_.postAfter(std::chrono::microseconds::max(), note(9));
  loop_.postAfter(1ms, note(1));
  loop_.run();
  EXPECT_THAT(order_, ElementsAre(1, 2));
  EXPECT_GE(std::chrono::steady_clock::now() - start, 50ms);
}

TEST_F(RunLoopTest, leavesWhatIsNotYetRunForTheNextRun) {
  loop_.post([this] { loop_.stop(); });
  loop_.post(note(1));
  loop_.run();
  EXPECT_TRUE(order_.empty());
  loop_.runFor(1ms);
  EXPECT_THAT(order_, ElementsAre(1));
}

TEST_F(RunLoopTest, isCurrentOnTheThreadThatRunsIt) {
  EXPECT_TRUE(loop_.isCurrent());
  std::promise<void> isRunning;
  bool isCurrentInside = false;
  std::thread runner([&] {
    EXPECT_FALSE(loop_.isCurrent());
    loop_.post([&] {
      isCurrentInside = loop_.isCurrent();
      isRunning.set_value();
    });
    loop_.run();
  });
  isRunning.get_future().wait();
  EXPECT_FALSE(loop_.isCurrent());
  loop_.stop();
  runner.join();
  EXPECT_TRUE(isCurrentInside);
  EXPECT_TRUE(loop_.isCurrent());
}

TEST_F(RunLoopTest, canRunInsideATask) {
  loop_.post([this] {
    loop_.post(note(1));
    loop_.post([this] { loop_.stop(); });
    loop_.run();
    order_.push_back(2);
    loop_.post([this] { loop_.stop(); });
  });
  loop_.run();
  EXPECT_THAT(order_, ElementsAre(1, 2));
}

}  // namespace
}  // namespace orrelo::test

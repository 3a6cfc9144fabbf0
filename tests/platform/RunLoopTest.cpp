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
  RunLoop& loop = RunLoop::main();
  std::vector<int> order;

  MainLoop::Task note(int number) {
    return [this, number] { order.push_back(number); };
  }
};

TEST_F(RunLoopTest, runsTasksInTheOrderOfPostingAlsoThosePostedMeanwhile) {
  loop.post([this] {
    order.push_back(1);
    loop.post(note(4));
    loop.postAfter(0us, [this] { loop.stop(); });
  });
  loop.post([] { throw std::runtime_error("harmless"); });
  loop.post(note(2));
  loop.post(note(3));
  EXPECT_TRUE(order.empty());
  loop.run();
  EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
}

TEST_F(RunLoopTest, runsDelayedTasksByDueTime) {
  const auto start = std::chrono::steady_clock::now();
  loop.postAfter(6ms, [this] { loop.stop(); });
  loop.postAfter(3ms, note(2));
  loop.postAfter(std::chrono::microseconds::max(), note(9));
  loop.postAfter(1ms, note(1));
  loop.run();
  EXPECT_THAT(order, ElementsAre(1, 2));
  EXPECT_GE(std::chrono::steady_clock::now() - start, 6ms);
}

TEST_F(RunLoopTest, leavesWhatIsNotYetRunForTheNextRun) {
  loop.post([this] { loop.stop(); });
  loop.post(note(1));
  loop.run();
  EXPECT_TRUE(order.empty());
  loop.runFor(1ms);
  EXPECT_THAT(order, ElementsAre(1));
}

TEST_F(RunLoopTest, isCurrentOnTheThreadThatRunsIt) {
  EXPECT_TRUE(loop.isCurrent());
  std::promise<void> isRunning;
  bool isCurrentInside = false;
  std::thread runner([&] {
    EXPECT_FALSE(loop.isCurrent());
    loop.post([&] {
      isCurrentInside = loop.isCurrent();
      isRunning.set_value();
    });
    loop.run();
  });
  isRunning.get_future().wait();
  EXPECT_FALSE(loop.isCurrent());
  loop.stop();
  runner.join();
  EXPECT_TRUE(isCurrentInside);
  EXPECT_TRUE(loop.isCurrent());
}

TEST_F(RunLoopTest, canRunInsideATask) {
  loop.post([this] {
    loop.post(note(1));
    loop.post([this] { loop.stop(); });
    loop.run();
    order.push_back(2);
    loop.post([this] { loop.stop(); });
  });
  loop.run();
  EXPECT_THAT(order, ElementsAre(1, 2));
}

}  // namespace
}  // namespace orrelo::test

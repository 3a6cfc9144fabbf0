#include "platform/threads/PosixWorkerPool.h"
#include "platform/threads/SerialQueue.h"

#include <gmock/gmock.h>
#include <latch>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class SerialQueueTest : public testing::Test {
 protected:
  void note(const std::string& text) {
    const std::lock_guard lock(mutex_);
    notes_.push_back(text);
  }

  std::mutex mutex_;
  std::vector<std::string> notes_;
  std::shared_ptr<PosixWorkerPool> pool_ = std::make_shared<PosixWorkerPool>();
  SerialQueue queue_{pool_, QualityOfService::standard};
};

TEST_F(SerialQueueTest, FinishingRunsWhatWaitsInItsPlace) {
  std::latch begun{1};
  std::latch released{1};
  queue_.post([&] {
    begun.count_down();
    released.wait();
    note("first");
  });
  queue_.post([&] {
    note("second");
    queue_.post([&] { note("third"); });
  });
  begun.wait();
  queue_.finish(0ms);
  EXPECT_THAT(notes_, ElementsAre()) << "still one at a time";
  released.count_down();
  queue_.finish(30s);
  EXPECT_THAT(notes_, ElementsAre("first", "second", "third"));

  std::latch later{1};
  queue_.post([&] { later.count_down(); });
  later.wait();
}

TEST_F(SerialQueueTest, ManyThreadsPostAndFinish) {
  constexpr int count = 500;
  int done = 0;  // guarded by the queue alone
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&] {
      for (int i = 0; i < count; ++i) {
        queue_.post([&] { ++done; });
        if (i % 10 == 0) queue_.finish(30s);
      }
    });
  }
  threads.clear();
  queue_.finish(30s);
  EXPECT_EQ(done, 4 * count);
}

}  // namespace
}  // namespace orrelo::test

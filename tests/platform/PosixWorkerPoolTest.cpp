#include "base/Utf8.h"
#include "platform/store/WriterQueue.h"
#include "platform/threads/KitThread.h"
#include "platform/threads/PosixWorkerPool.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <latch>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class PosixWorkerPoolTest : public ::testing::Test {
 protected:
  /// Keeps all threads busy: three until `released`, one until `oneReleased`.
  void occupy() {
    for (int thread = 0; thread < 4; ++thread) {
      pool_->post(QualityOfService::userInteractive, [this, thread] {
        occupied_.count_down();
        (thread == 0 ? oneReleased_ : released_).wait();
      });
    }
    occupied_.wait();
  }

  void note(const std::string& text) {
    const std::lock_guard lock(mutex_);
    notes_.push_back(text);
  }

  std::latch occupied_{4};
  std::latch released_{1};
  std::latch oneReleased_{1};
  std::mutex mutex_;
  std::vector<std::string> notes_;
  std::unique_ptr<WorkerPool> pool_ = std::make_unique<PosixWorkerPool>();
};

// A thread shares the descriptors of the thread that starts it, and those of the stores' thread are separate.
TEST_F(PosixWorkerPoolTest, runsTheTasksOfTheStoresThreadWithTheDescriptorsOfTheProcess) {
  std::array<int, 2> pipeEnds{};
  ASSERT_EQ(pipe(pipeEnds.data()), 0);
  const auto inodeHere = [number = pipeEnds[0]] {
    struct stat status {};
    return fstat(number, &status) == 0 ? status.st_ino : ino_t{0};
  };
  std::latch posted{1};
  std::promise<ino_t> inode;
  WriterQueue stores;
  pool_->post(QualityOfService::standard, [&] { posted.wait(); });  // the only thread is busy
  stores.post([&] {
    pool_->post(QualityOfService::standard, [&] { inode.set_value(inodeHere()); });
    posted.count_down();
  });
  EXPECT_EQ(inode.get_future().get(), inodeHere());
  close(pipeEnds[0]);
  close(pipeEnds[1]);
}

TEST_F(PosixWorkerPoolTest, startsUrgentTasksFirstAndOldOnesFirstWithinAClass) {
  occupy();
  std::promise<void> done;
  pool_->post(QualityOfService::background, [&] {
    note("background");
    done.set_value();
  });
  pool_->post(QualityOfService::utility, [&] { note("utility"); });
  pool_->post(QualityOfService::standard, [&] { note("standard 1"); });
  pool_->post(QualityOfService::standard, [&] { note("standard 2"); });
  pool_->post(QualityOfService::userInteractive, [&] { note("interactive"); });
  oneReleased_.count_down();
  done.get_future().wait();
  released_.count_down();
  EXPECT_THAT(notes_, ElementsAre("interactive", "standard 1", "standard 2", "utility", "background"));
}

TEST_F(PosixWorkerPoolTest, runsDelayedTasksWhenTheyAreDueAndInThatOrder) {
  std::promise<void> done;
  const auto start = std::chrono::steady_clock::now();
  std::chrono::steady_clock::duration waited{};
  std::promise<void> early;
  pool_->postAfter(QualityOfService::standard, 20ms, [&] {
    waited = std::chrono::steady_clock::now() - start;
    done.set_value();
  });
  pool_->postAfter(QualityOfService::standard, 24h, [] {});
  pool_->postAfter(QualityOfService::standard, std::chrono::microseconds::max(), [] {});
  pool_->postAfter(QualityOfService::standard, 1ms, [&] { early.set_value(); });
  pool_->postAfter(QualityOfService::standard, -1ms, [] {});
  early.get_future().wait();
  done.get_future().wait();
  EXPECT_GE(waited, 20ms);
}

TEST_F(PosixWorkerPoolTest, runsADelayedTaskWhileOtherThreadsAreAtWork) {
  std::promise<void> done;
  std::promise<void> started;
  pool_->postAfter(QualityOfService::standard, 2ms, [&] { done.set_value(); });
  // This task occupies the thread that would wait for the delayed task.
  pool_->post(QualityOfService::standard, [&] {
    started.set_value();
    released_.wait();
  });
  started.get_future().wait();
  done.get_future().wait();
  released_.count_down();
}

TEST_F(PosixWorkerPoolTest, usesFourThreadsAndSurvivesWhatATaskThrows) {
  for (int n = 0; n < 8; ++n)
    pool_->post(QualityOfService::standard, [] { throw std::runtime_error("harmless"); });
  occupy();  // ends only if four tasks run at once
  oneReleased_.count_down();
  released_.count_down();
}

#ifdef __linux__  // elsewhere threads have no priority of their own
TEST_F(PosixWorkerPoolTest, decodesOnTwoThreadsThatGiveWayToTheOthers) {
  const auto niceHere = [] { return getpriority(PRIO_PROCESS, 0); };
  occupy();  // decoding waits for no worker
  std::array<std::promise<int>, 2> decoders;
  std::latch bothRun{2};
  for (auto& nice : decoders) {
    pool_->postDecoding([&] {
      bothRun.arrive_and_wait();
      nice.set_value(niceHere());
    });
  }
  const int own = niceHere();
  for (auto& nice : decoders) EXPECT_EQ(nice.get_future().get(), std::max(own, 15));
  std::promise<int> worker;
  pool_->post(QualityOfService::userInteractive, [&] { worker.set_value(niceHere()); });
  oneReleased_.count_down();
  released_.count_down();
  EXPECT_EQ(worker.get_future().get(), std::max(own, 5));
}
#endif

TEST_F(PosixWorkerPoolTest, takesTasksFromManyThreadsAndFromTasks) {
  constexpr int posters = 4;
  constexpr int each = 5000;
  std::atomic<int> left = posters * each * 2;
  std::promise<void> done;
  const auto count = [&] {
    if (--left == 0) done.set_value();
  };
  std::vector<std::thread> threads;
  for (int n = 0; n < posters; ++n) {
    threads.emplace_back([&] {
      for (int task = 0; task < each; ++task) {
        pool_->post(static_cast<QualityOfService>(task % 5), [&] {
          count();
          pool_->postAfter(QualityOfService::standard, 1us, count);
        });
      }
    });
  }
  for (auto& thread : threads) thread.join();
  done.get_future().wait();
}

TEST_F(PosixWorkerPoolTest, canEndInsideATask) {
  std::promise<void> ended;
  auto owned = std::make_shared<PosixWorkerPool>();
  auto* const posting = owned.get();
  std::promise<void> handedOver;
  posting->post(QualityOfService::standard, [&, last = std::move(owned)]() mutable {
    handedOver.get_future().wait();
    last.reset();
    ended.set_value();
  });
  handedOver.set_value();
  ended.get_future().wait();
}

// Exits the process while a task runs.
[[noreturn]] void exitWhileATaskRuns() {
  static auto* const pool = new PosixWorkerPool;
  std::promise<void> began;
  pool->post(QualityOfService::standard, [&began] {
    began.set_value();
    while (!isExiting()) std::this_thread::yield();
    std::cerr << (utf8::isValid("사과") ? "valid" : "invalid");
    std::cerr << " to the end";
  });
  began.get_future().wait();
  std::exit(0);
}

TEST(PosixWorkerPoolDeathTest, TheExitWaitsForWhatRuns) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(exitWhileATaskRuns(), testing::ExitedWithCode(0), "valid to the end");
}

TEST(PosixWorkerPoolDeathTest, ATaskMayEndTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto exitInATask = [] {
    static auto* const pool = new PosixWorkerPool;
    pool->post(QualityOfService::standard, [] { std::exit(3); });
    std::promise<void>().get_future().wait();
  };
  EXPECT_EXIT(exitInATask(), testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace orrelo::test

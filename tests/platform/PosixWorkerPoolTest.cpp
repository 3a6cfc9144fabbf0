#include "base/Utf8.h"
#include "platform/threads/KitThread.h"
#include "platform/threads/PosixWorkerPool.h"

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
      pool->post(QualityOfService::userInteractive, [this, thread] {
        occupied.count_down();
        (thread == 0 ? oneReleased : released).wait();
      });
    }
    occupied.wait();
  }

  void note(const std::string& text) {
    const std::lock_guard lock(mutex);
    notes.push_back(text);
  }

  std::latch occupied{4};
  std::latch released{1};
  std::latch oneReleased{1};
  std::mutex mutex;
  std::vector<std::string> notes;
  std::unique_ptr<WorkerPool> pool = std::make_unique<PosixWorkerPool>();
};

TEST_F(PosixWorkerPoolTest, startsUrgentTasksFirstAndOldOnesFirstWithinAClass) {
  occupy();
  std::promise<void> done;
  pool->post(QualityOfService::background, [&] {
    note("background");
    done.set_value();
  });
  pool->post(QualityOfService::utility, [&] { note("utility"); });
  pool->post(QualityOfService::standard, [&] { note("standard 1"); });
  pool->post(QualityOfService::standard, [&] { note("standard 2"); });
  pool->post(QualityOfService::userInteractive, [&] { note("interactive"); });
  oneReleased.count_down();
  done.get_future().wait();
  released.count_down();
  EXPECT_THAT(notes, ElementsAre("interactive", "standard 1", "standard 2", "utility", "background"));
}

TEST_F(PosixWorkerPoolTest, runsDelayedTasksWhenTheyAreDueAndInThatOrder) {
  std::promise<void> done;
  const auto start = std::chrono::steady_clock::now();
  std::chrono::steady_clock::duration waited{};
  std::promise<void> early;
  pool->postAfter(QualityOfService::standard, 20ms, [&] {
    waited = std::chrono::steady_clock::now() - start;
    done.set_value();
  });
  pool->postAfter(QualityOfService::standard, 24h, [] {});
  pool->postAfter(QualityOfService::standard, std::chrono::microseconds::max(), [] {});
  pool->postAfter(QualityOfService::standard, 1ms, [&] { early.set_value(); });
  pool->postAfter(QualityOfService::standard, -1ms, [] {});
  early.get_future().wait();
  done.get_future().wait();
  EXPECT_GE(waited, 20ms);
}

TEST_F(PosixWorkerPoolTest, runsADelayedTaskWhileOtherThreadsAreAtWork) {
  std::promise<void> done;
  std::promise<void> started;
  pool->postAfter(QualityOfService::standard, 2ms, [&] { done.set_value(); });
  // The thread that waits for the time to come is the one that this task takes away.
  pool->post(QualityOfService::standard, [&] {
    started.set_value();
    released.wait();
  });
  started.get_future().wait();
  done.get_future().wait();
  released.count_down();
}

TEST_F(PosixWorkerPoolTest, usesFourThreadsAndSurvivesWhatATaskThrows) {
  for (int n = 0; n < 8; ++n)
    pool->post(QualityOfService::standard, [] { throw std::runtime_error("harmless"); });
  occupy();  // ends only if four tasks run at once
  oneReleased.count_down();
  released.count_down();
}

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
        pool->post(static_cast<QualityOfService>(task % 5), [&] {
          count();
          pool->postAfter(QualityOfService::standard, 1us, count);
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

// Ends while a task runs.
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

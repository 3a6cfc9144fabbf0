// The results of the operators and sources that depend on time, in virtual time.

#include "reactive/Subjects.h"
#include "support/Probe.h"
#include "support/VirtualTimeScheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

using namespace reactive;
using std::chrono::milliseconds;

class TimedOperators : public testing::Test {
 protected:
  template <class T>
  NotesPtr watchInTime(const Observable<T>& stream) {
    auto notes = std::make_shared<Notes>();
    notes->clock = scheduler_;
    watch(stream, notes);
    return notes;
  }
  void send(int time, int element) {
    scheduler_->advanceTo(milliseconds(time));
    subject_.onNext(element);
  }

  std::shared_ptr<VirtualTimeScheduler> scheduler_ = std::make_shared<VirtualTimeScheduler>();
  PublishSubject<int> subject_;
};

TEST_F(TimedOperators, BufferEmitsByCountAndBySpanCountedFromTheLastEmission) {
  const auto notes = watchInTime(subject_.asObservable().buffer(milliseconds(10), 3, scheduler_));
  send(4, 1);
  send(12, 2);
  send(14, 3);
  send(15, 4);  // fills the buffer, so the span restarts at 15
  send(25, 5);  // after the empty list that is due at the same time
  send(36, 6);
  send(36, 7);
  send(36, 8);
  send(36, 9);
  EXPECT_EQ(scheduler_->pendingCount(), 1u);
  scheduler_->advanceTo(milliseconds(57));
  EXPECT_EQ(notes->lines,
            (Lines{"10: [1]", "15: [2 3 4]", "25: []", "35: [5]", "36: [6 7 8]", "46: [9]", "56: []"}));
  EXPECT_EQ(scheduler_->pendingCount(), 1u);

  notes->lines.clear();
  send(58, 10);
  subject_.onCompleted();
  scheduler_->advanceBy(milliseconds(100));
  EXPECT_EQ(notes->lines, (Lines{"58: [10]", "58: completed"}));
  EXPECT_EQ(scheduler_->pendingCount(), 0u);
}

TEST_F(TimedOperators, ThrottleLetsOneThroughAPeriod) {
  const auto first = watchInTime(subject_.asObservable().throttle(milliseconds(10), false, scheduler_));
  const auto latest = watchInTime(subject_.asObservable().throttle(milliseconds(10), true, scheduler_));
  send(5, 1);
  send(7, 2);
  send(9, 3);
  send(16, 4);
  scheduler_->advanceTo(milliseconds(40));
  send(41, 5);
  send(42, 6);
  subject_.onCompleted();
  scheduler_->advanceBy(milliseconds(100));
  EXPECT_EQ(first->lines, (Lines{"5: 1", "16: 4", "41: 5", "42: completed"}));
  EXPECT_EQ(latest->lines, (Lines{"5: 1", "15: 3", "25: 4", "41: 5", "42: 6", "42: completed"}));
}

TEST_F(TimedOperators, IntervalTicksForEachSubscriberUntilItIsDisposedOf) {
  const auto ticks = interval(milliseconds(10), scheduler_);
  const auto early = watchInTime(ticks);
  scheduler_->advanceTo(milliseconds(15));
  const auto late = watchInTime(ticks);
  late->onElement = [&] { late->handle.dispose(); };
  scheduler_->advanceTo(milliseconds(30));
  early->handle.dispose();
  scheduler_->advanceBy(milliseconds(100));
  EXPECT_EQ(early->lines, (Lines{"10: 0", "20: 1", "30: 2"}));
  EXPECT_EQ(late->lines, (Lines{"25: 0"}));
  EXPECT_EQ(scheduler_->pendingCount(), 0u);
}

TEST_F(TimedOperators, ABurstOfSignalsWaitsBehindOneTask) {
  const PublishSubject<Unit> signals;
  int heard = 0;
  bool completed = false;
  signals.asObservable()
      .observeOn(scheduler_)
      .subscribe({.onNext = [&](Unit) { ++heard; }, .onCompleted = [&] { completed = true; }});
  for (int i = 0; i < 100'000; ++i) signals.onNext({});
  signals.onCompleted();
  EXPECT_EQ(scheduler_->pendingCount(), 1u);
  scheduler_->runDue();
  EXPECT_EQ(heard, 100'000);
  EXPECT_TRUE(completed);
}

}  // namespace
}  // namespace orrelo::test

#include "reactive/Creating.h"

namespace orrelo::reactive {
namespace {

// The scheduled task owns the timer; no further task is scheduled once the sink is disposed.
class IntervalTimer : public std::enable_shared_from_this<IntervalTimer> {
 public:
  IntervalTimer(AnyObserver<std::int64_t> observer, std::chrono::microseconds period, SchedulerPtr scheduler)
      : observer_(std::move(observer)), period_(period), scheduler_(std::move(scheduler)) {}

  void start() {
    due_ = scheduler_->now() + period_;
    scheduleNext();
  }

 private:
  void scheduleNext() {
    scheduler_->scheduleAfter(due_ - scheduler_->now(), [self = shared_from_this()] { self->tick(); });
  }

  void tick() {
    if (observer_.isDisposed()) return;
    observer_.onNext(next_++);
    due_ += period_;  // independent of now(), so that delays do not add up
    scheduleNext();
  }

  AnyObserver<std::int64_t> observer_;
  std::chrono::microseconds period_;
  SchedulerPtr scheduler_;
  std::chrono::microseconds due_{};
  std::int64_t next_ = 0;
};

}  // namespace

Observable<std::int64_t> interval(std::chrono::microseconds period, SchedulerPtr scheduler) {
  return create<std::int64_t>([period, scheduler = std::move(scheduler)](AnyObserver<std::int64_t> observer) {
    std::make_shared<IntervalTimer>(std::move(observer), period, scheduler)->start();
    return Disposables::create();
  });
}

}  // namespace orrelo::reactive

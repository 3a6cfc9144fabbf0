#include "events/StoreQueue.h"

#include "base/explain.h"
#include "events/DroppedEvent.h"
#include "events/EventRecord.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/WorkerPool.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace orrelo {
namespace {

bool isTooOld(const Event& event) {
  return Platform::current().clock->now() - event.eventTime >= EventPipeline::maximumAge;
}

}  // namespace

void StoreQueue::store(std::vector<AcceptedEvent> events) {
  std::size_t run = 0;
  {
    const std::lock_guard lock(mutex_);
    const bool isSingle = events.size() == 1 && !isRunning_;
    if (!isSingle) {
      for (auto& event : events) insert(std::move(event));
      if (std::exchange(isRunning_, true)) return;
      run = ++run_;
    }
  }
  run > 0 ? storeNextPart(run) : save(events.front(), nullptr);
}

void StoreQueue::restart() {
  std::size_t run = 0;
  {
    const std::lock_guard lock(mutex_);
    isRunning_ = true;
    run = ++run_;
  }
  storeNextPart(run);
}

void StoreQueue::insert(AcceptedEvent event) {
  const auto behind = std::upper_bound(
      waiting_.begin(), waiting_.end(), event,
      [](const AcceptedEvent& a, const AcceptedEvent& b) { return a.place.ticket < b.place.ticket; });
  waiting_.insert(behind, std::move(event));
}

void StoreQueue::save(const AcceptedEvent& event, const std::shared_ptr<const void>& part) {
  const auto content = EventRecord::decode(event.record.view());
  if (!content || isTooOld(content->event)) {
    explainDroppedEvent(event.record, content ? DropReason::tooOld : DropReason::unreadable);
    return settle_(event.place);
  }
  save_(content->event, event.mayBeStored, [this, event, part](const std::optional<Error>& failure) {
    failure ? onRefused(event, *failure) : settle_(event.place);
  });
}

void StoreQueue::onRefused(AcceptedEvent event, const Error& failure) {
  event.mayBeStored = true;
  std::size_t run = 0;
  bool isFirst = false;
  {
    const std::lock_guard lock(mutex_);
    isFirst = !std::exchange(isRefused_, true) && pause_ == firstPause;
    insert(std::move(event));
    if (!std::exchange(isRunning_, true)) run = ++run_;
  }
  if (isFirst) {
    explain(ExplanationLevel::warning, [&] {
      return "A store refuses events for now: " + failure.description() +
             ". They are kept, and tried again with growing pauses for a day. Free the disk, or end the "
             "program that holds the file.";
    });
  }
  if (run > 0) endPart(run);
}

void StoreQueue::storeNextPart(std::size_t run) {
  std::vector<AcceptedEvent> events;
  {
    const std::lock_guard lock(mutex_);
    if (run != run_) return;
    isRefused_ = false;
    isRunning_ = !waiting_.empty();
    if (!isRunning_) return;
    const auto end =
        waiting_.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(waiting_.size(), partSize));
    events.assign(std::make_move_iterator(waiting_.begin()), std::make_move_iterator(end));
    waiting_.erase(waiting_.begin(), end);
  }
  // Destroyed when the last event of the part is settled or refused, on the stores' thread.
  const std::shared_ptr<const void> part(nullptr, [this, run](const void*) { endPart(run); });
  for (const auto& event : events) save(event, part);
}

void StoreQueue::endPart(std::size_t run) {
  std::chrono::milliseconds pause{0};
  {
    const std::lock_guard lock(mutex_);
    if (run != run_) return;
    if (isRefused_) pause = pause_;
    pause_ = isRefused_ ? std::min(2 * pause_, longestPause) : firstPause;
  }
  Platform::current().workers->postAfter(QualityOfService::utility, pause,
                                         [this, run] { storeNextPart(run); });
}

}  // namespace orrelo

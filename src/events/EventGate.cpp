#include "events/EventGate.h"

#include "base/explain.h"
#include "events/EventPipeline.h"
#include "events/KelsoInsight.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/WorkerPool.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace orrelo {
namespace {

/// The events of a group that are decoded and stored together. The others wait as they stand in the journal,
/// which takes a quarter of the memory.
constexpr std::size_t partSize = 16;

bool isTooOld(const Event& event) {
  return Platform::current().clock->now() - event.eventTime >= EventPipeline::maximumAge;
}

std::optional<DropReason> reasonToDrop(const Config& config) {
  if (config.sdkEnable) return std::nullopt;
  return config == Config::defaults() ? DropReason::unconfigured : DropReason::disabled;
}

bool isOfHost(const AcceptedEvent& accepted) {
  return EventRecord::origin(accepted.record.view()) != EventOrigin::kit;
}

}  // namespace

struct EventGate::Connection {
  explicit Connection(Destination connected) : destination(std::move(connected)) {}

  const Destination destination;
  reactive::DisposeBag disposeBag;
};

/// An event on its way to the store.
struct EventGate::Pending {
  EventPlace place;
  /// True if an earlier commit may have succeeded, or may have been reported as failed after it succeeded.
  bool mayBeStored;
  EventOrigin origin;
  Event event;
  /// Shared by the events of one part of a group; the next part is stored when it is destroyed.
  std::shared_ptr<const void> part;
};

/// The events of a group that are not decoded yet.
struct EventGate::Rest {
  Group group;
  std::size_t next = 0;
};

void EventGate::connect(Destination destination) {
  std::map<std::size_t, Group> questions;
  std::shared_ptr<Connection> former;
  {
    const std::lock_guard lock(mutex_);
    former = std::exchange(connection_, std::make_shared<Connection>(std::move(destination)));
    keptDisabled_.push_back(connection_->destination.fetchConfigUseCase->disabled());
    disabled_ = keptDisabled_.back().get();
    questions.swap(questions_);
    isRetryScheduled_ = true;  // the task may have been posted to another platform's pool, which runs no more
  }
  if (former) former->disposeBag.dispose();
  for (auto& [number, group] : questions) {
    group.front().isAdopted ? ask(std::move(group)) : drop(group, DropReason::replaced);
  }
}

std::shared_ptr<EventGate::Connection> EventGate::connection() const {
  const std::lock_guard lock(mutex_);
  return connection_;
}

bool EventGate::isDisabled() const {
  const auto* const disabled = disabled_.load(std::memory_order_acquire);
  if (disabled == nullptr || !disabled->load(std::memory_order_relaxed)) return false;
  const auto current = connection();
  if (!current) return false;
  const auto config = current->destination.fetchConfigUseCase->freshConfig();
  return config && !config->sdkEnable;
}

void EventGate::enter(Group group) {
  const auto firstOfKit = std::stable_partition(group.begin(), group.end(), isOfHost);
  Group ofKit(std::make_move_iterator(firstOfKit), std::make_move_iterator(group.end()));
  group.erase(firstOfKit, group.end());
  if (!ofKit.empty()) finish(std::move(ofKit), std::nullopt);
  if (!group.empty()) ask(std::move(group));
}

void EventGate::ask(Group group) {
  const auto asked = connection();
  if (!asked) return drop(group, DropReason::homeless);
  auto& fetchConfigUseCase = *asked->destination.fetchConfigUseCase;
  if (const auto config = fetchConfigUseCase.freshConfig())
    return finish(std::move(group), reasonToDrop(*config));

  std::size_t question = 0;
  {
    std::unique_lock lock(mutex_);
    if (asked != connection_) {
      lock.unlock();
      return ask(std::move(group));
    }
    question = ++questionCount_;
    questions_.emplace(question, std::move(group));
  }
  fetchConfigUseCase.fetch()
      .subscribe(
          {.onNext = [this, question](const Config& config) { answer(question, reasonToDrop(config)); },
           .onError = [this, question](const Error&) { answer(question, DropReason::unconfigured); },
           .onCompleted = [this, question] { answer(question, DropReason::unconfigured); }})
      .disposedBy(asked->disposeBag);
}

void EventGate::answer(std::size_t question, std::optional<DropReason> reason) {
  Group group;
  {
    const std::lock_guard lock(mutex_);
    const auto found = questions_.find(question);
    if (found == questions_.end()) return;
    group = std::move(found->second);
    questions_.erase(found);
  }
  finish(std::move(group), reason);
}

void EventGate::finish(Group group, std::optional<DropReason> reason) {
  if (reason) return drop(group, *reason);
  if (group.size() == 1) return store(group.front(), nullptr);
  storeNext(std::make_shared<Rest>(Rest{std::move(group)}));
}

void EventGate::storeNext(const std::shared_ptr<Rest>& rest) {
  const auto end = std::min(rest->next + partSize, rest->group.size());
  // Destroyed when all events of the part are settled, on the stores' thread.
  const std::shared_ptr<const void> part(nullptr, [this, rest](const void*) {
    if (rest->next == rest->group.size()) return;
    Platform::current().workers->post(QualityOfService::utility, [this, rest] { storeNext(rest); });
  });
  while (rest->next < end) store(std::exchange(rest->group[rest->next++], {}), part);
}

void EventGate::store(const AcceptedEvent& accepted, const std::shared_ptr<const void>& part) {
  auto content = EventRecord::decode(accepted.record.view());
  if (!content || (accepted.isAdopted && isTooOld(content->event))) {
    return drop({accepted}, content ? DropReason::tooOld : DropReason::unreadable);
  }
  store(std::make_shared<Pending>(
      Pending{accepted.place, accepted.isAdopted, content->origin, std::move(content->event), part}));
}

void EventGate::store(const PendingPtr& pending) {
  const auto completion = [this, pending](const std::optional<Error>& failure) {
    if (failure) return onRefused(pending, *failure);
    settle({&pending->place, 1});
  };
  if (pending->origin == EventOrigin::kit) {
    const auto insight = KelsoInsight::instance();
    if (insight) return insight->save(pending->event, pending->mayBeStored, completion);
    return drop(*pending, DropReason::homeless);
  }
  const auto current = connection();
  if (!current) return drop(*pending, DropReason::homeless);
  current->destination.saveEventUseCase.save(pending->event, pending->mayBeStored, completion);
}

void EventGate::onRefused(const PendingPtr& pending, const Error& failure) {
  pending->mayBeStored = true;
  std::chrono::milliseconds pause{};
  bool isFirst = false;
  {
    const std::lock_guard lock(mutex_);
    refused_.push_back(pending);
    if (std::exchange(isRetryScheduled_, true)) return;
    isFirst = pause_ == firstPause;
    pause = std::exchange(pause_, std::min(2 * pause_, longestPause));
  }
  if (isFirst) {
    explain(ExplanationLevel::warning, [&] {
      return "A store refuses events for now: " + failure.description() +
             ". They are kept, and tried again with growing pauses for a day. Free the disk, or end the "
             "program that holds the file.";
    });
  }
  Platform::current().workers->postAfter(QualityOfService::utility, pause, [this] { retry(); });
}

void EventGate::retry() {
  std::vector<PendingPtr> refused;
  {
    const std::lock_guard lock(mutex_);
    refused.swap(refused_);
    isRetryScheduled_ = false;
  }
  for (const auto& pending : refused) {
    isTooOld(pending->event) ? drop(*pending, DropReason::tooOld) : store(pending);
  }
}

void EventGate::drop(const Group& group, DropReason reason) {
  std::vector<EventPlace> places;
  for (const auto& accepted : group) {
    explainDroppedEvent(accepted.record, reason);
    places.push_back(accepted.place);
  }
  settle(places);
}

void EventGate::drop(const Pending& pending, DropReason reason) {
  explainDroppedEvent(pending.event.eventName, reason);
  settle({&pending.place, 1});
}

void EventGate::settle(std::span<const EventPlace> places) {
  std::vector<EventJournal::Position> positions;
  for (const auto& place : places) {
    if (place.position) positions.push_back(*place.position);
    if (place.reservedSize > 0) unwritten_.release(place.reservedSize);
  }
  {
    const std::lock_guard lock(mutex_);
    if (refused_.empty()) pause_ = firstPause;
  }
  const auto& journal = Platform::current().eventJournal;
  if (!positions.empty() && journal) journal->release(std::move(positions));
  for (const auto& place : places) waiters_.settle(place.ticket);
}

}  // namespace orrelo

#include "events/EventGate.h"

#include "base/Logger.h"
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
    group.front().isAdopted ? ask(std::move(group)) : settle(group);
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
  if (!ofKit.empty()) finish(std::move(ofKit), true);
  if (!group.empty()) ask(std::move(group));
}

void EventGate::ask(Group group) {
  const auto asked = connection();
  if (!asked) return settle(group);
  auto& fetchConfigUseCase = *asked->destination.fetchConfigUseCase;
  if (const auto config = fetchConfigUseCase.freshConfig())
    return finish(std::move(group), config->sdkEnable);

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
      .subscribe({.onNext = [this, question](const Config& config) { answer(question, config.sdkEnable); },
                  .onError = [this, question](const Error&) { answer(question, false); },
                  .onCompleted = [this, question] { answer(question, false); }})
      .disposedBy(asked->disposeBag);
}

void EventGate::answer(std::size_t question, bool mayStore) {
  Group group;
  {
    const std::lock_guard lock(mutex_);
    const auto found = questions_.find(question);
    if (found == questions_.end()) return;
    group = std::move(found->second);
    questions_.erase(found);
  }
  finish(std::move(group), mayStore);
}

void EventGate::finish(Group group, bool mayStore) {
  if (!mayStore) return settle(group);
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
  if (!content) log(LogLevel::ERROR, "A record of the journal is no event and is dropped.");
  if (!content || (accepted.isAdopted && isTooOld(content->event))) return settle({&accepted.place, 1});
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
    return insight ? insight->save(pending->event, pending->mayBeStored, completion)
                   : completion(std::nullopt);
  }
  const auto current = connection();
  if (!current) return completion(std::nullopt);
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
    log(LogLevel::WARNING, [&] {
      return "A store refuses events for now: " + failure.description() +
             ". They are kept, and tried again with growing pauses for a day.";
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
    isTooOld(pending->event) ? settle({&pending->place, 1}) : store(pending);
  }
}

void EventGate::settle(const Group& group) {
  std::vector<EventPlace> places;
  for (const auto& accepted : group) places.push_back(accepted.place);
  settle(places);
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

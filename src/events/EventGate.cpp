#include "events/EventGate.h"

#include "events/EventRecord.h"
#include "events/KelsoInsight.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace orrelo {
namespace {

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

EventGate::EventGate(FlushWaiters& waiters, UnwrittenEvents& unwritten)
    : waiters_(waiters),
      unwritten_(unwritten),
      ofHost_([this](const Event& event, bool mayBeStored,
                     auto completion) { save(event, mayBeStored, std::move(completion)); },
              [this](const EventPlace& place) {
                settle({&place, 1});
              }),
      ofKit_(
          [](const Event& event, bool mayBeStored, auto completion) {
            const auto insight = KelsoInsight::instance();
            if (insight) return insight->save(event, mayBeStored, std::move(completion));
            explainDroppedEvent(event.eventName, DropReason::homeless);
            completion(std::nullopt);
          },
          [this](const EventPlace& place) {
            settle({&place, 1});
          }) {}

void EventGate::connect(Destination destination) {
  std::map<std::size_t, Group> questions;
  std::shared_ptr<Connection> former;
  {
    const std::lock_guard lock(mutex_);
    former = std::exchange(connection_, std::make_shared<Connection>(std::move(destination)));
    keptDisabled_.push_back(connection_->destination.fetchConfigUseCase->disabled());
    disabled_ = keptDisabled_.back().get();
    questions.swap(questions_);
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
  if (!ofKit.empty()) ofKit_.store(std::move(ofKit));
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
  reason ? drop(group, *reason) : ofHost_.store(std::move(group));
}

void EventGate::restart() {
  ofHost_.restart();
  ofKit_.restart();
}

void EventGate::save(const Event& event, bool mayBeStored, EventPipeline::SaveCompletion completion) const {
  const auto current = connection();
  if (current) return current->destination.saveEventUseCase.save(event, mayBeStored, std::move(completion));
  explainDroppedEvent(event.eventName, DropReason::homeless);
  completion(std::nullopt);
}

void EventGate::drop(const Group& group, DropReason reason) {
  std::vector<EventPlace> places;
  for (const auto& accepted : group) {
    explainDroppedEvent(accepted.record, reason);
    places.push_back(accepted.place);
  }
  settle(places);
}

void EventGate::settle(std::span<const EventPlace> places) {
  std::vector<EventJournal::Position> positions;
  for (const auto& place : places) {
    if (place.position) positions.push_back(*place.position);
    if (place.reservedSize > 0) unwritten_.release(place.reservedSize);
  }
  const auto& journal = Platform::current().eventJournal;
  if (!positions.empty() && journal) journal->release(std::move(positions));
  for (const auto& place : places) waiters_.settle(place.ticket);
}

}  // namespace orrelo

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
            insight ? insight->save(event, mayBeStored, std::move(completion)) : completion(std::nullopt);
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
  if (!ofKit.empty()) ofKit_.store(std::move(ofKit));
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
  mayStore ? ofHost_.store(std::move(group)) : settle(group);
}

void EventGate::restart() {
  ofHost_.restart();
  ofKit_.restart();
}

void EventGate::save(const Event& event, bool mayBeStored, EventPipeline::SaveCompletion completion) const {
  const auto current = connection();
  if (!current) return completion(std::nullopt);
  current->destination.saveEventUseCase.save(event, mayBeStored, std::move(completion));
}

void EventGate::settle(std::span<const AcceptedEvent> events) {
  std::vector<EventPlace> places;
  for (const auto& event : events) places.push_back(event.place);
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

#pragma once

#include "config/FetchConfigUseCase.h"
#include "events/AcceptedEvent.h"
#include "events/DroppedEvent.h"
#include "events/SaveEventUseCase.h"
#include "events/StoreQueue.h"
#include "events/UnwrittenEvents.h"
#include "reactive/Disposable.h"

#include <atomic>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace orrelo {

/// Asks the configuration whether events may be stored, hands them to the queue of their store, and settles
/// them: releases their records once they are committed or dropped. Any thread, unless stated otherwise.
class EventGate {
 public:
  /// What `Orrelo::initialize` provides.
  struct Destination {
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
    SaveEventUseCase saveEventUseCase;
  };

  /// The events that share one question of the configuration.
  using Group = std::vector<AcceptedEvent>;

  EventGate(FlushWaiters& waiters, UnwrittenEvents& unwritten);

  /// Replaces the destination. Events whose question has no answer yet are dropped, except adopted ones,
  /// which ask again. `restart` must be called afterwards on a thread of the new platform.
  void connect(Destination destination);

  /// True if the configuration in memory is fresh and has disabled the kit.
  bool isDisabled() const;

  /// Stores the events once their question is answered; those of the kit are stored without a question.
  void enter(Group group);

  /// Continues with the events that wait for a store.
  void restart();

 private:
  struct Connection;

  std::shared_ptr<Connection> connection() const;
  void ask(Group group);
  void answer(std::size_t question, std::optional<DropReason> reason);
  /// Stores the events, or drops them for the reason.
  void finish(Group group, std::optional<DropReason> reason);
  void drop(const Group& group, DropReason reason);
  void save(const Event& event, bool mayBeStored, EventPipeline::SaveCompletion completion) const;
  void settle(std::span<const EventPlace> places);

  FlushWaiters& waiters_;
  UnwrittenEvents& unwritten_;

  /// FetchConfigUseCase::disabled of the connection. Hosts' threads read it without a lock, so that the
  /// former ones, a few bytes each, stay alive.
  std::atomic<const std::atomic<bool>*> disabled_ = nullptr;

  /// Guards the fields below, each time for a few instructions. Hosts' threads seldom need it.
  mutable std::mutex mutex_;
  std::shared_ptr<Connection> connection_;
  std::vector<std::shared_ptr<const std::atomic<bool>>> keptDisabled_;
  std::map<std::size_t, Group> questions_;
  std::size_t questionCount_ = 0;

  StoreQueue ofHost_;
  StoreQueue ofKit_;
};

}  // namespace orrelo

#pragma once

#include "config/FetchConfigUseCase.h"
#include "events/DroppedEvent.h"
#include "events/EventRecord.h"
#include "events/FlushWaiters.h"
#include "events/SaveEventUseCase.h"
#include "events/UnwrittenEvents.h"
#include "reactive/Disposable.h"

#include <orrelo/platform/EventJournal.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace orrelo {

/// What an event occupies until it is settled.
struct EventPlace {
  /// In the journal; absent if the event waits in memory alone.
  std::optional<EventJournal::Position> position;
  /// The size that UnwrittenEvents has reserved for it.
  std::size_t reservedSize = 0;
  FlushWaiters::Ticket ticket = 0;
};

/// An event that the intake has accepted and that is not settled yet.
struct AcceptedEvent {
  EventJournal::Record record;
  EventPlace place;
  /// An ended process has accepted it.
  bool isAdopted = false;
};

/// Asks the configuration whether events may be stored, hands them to their store, and settles them: releases
/// their records once they are committed or dropped. An event that its store refuses is tried again with
/// growing pauses until it is a day old. Any thread, unless stated otherwise.
class EventGate {
 public:
  /// What `Orrelo::initialize` provides.
  struct Destination {
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
    SaveEventUseCase saveEventUseCase;
  };

  /// The events that share one question of the configuration.
  using Group = std::vector<AcceptedEvent>;

  EventGate(FlushWaiters& waiters, UnwrittenEvents& unwritten) : waiters_(waiters), unwritten_(unwritten) {}

  /// Replaces the destination. Events whose question has no answer yet are dropped, except adopted ones,
  /// which ask again. `retry` must be called afterwards on a thread of the new platform.
  void connect(Destination destination);

  /// True if the configuration in memory is fresh and has disabled the kit.
  bool isDisabled() const;

  /// Stores the events once their question is answered; those of the kit are stored without a question.
  /// Events of one thread are stored in the order of its calls.
  void enter(Group group);

  /// Stores the events again that a store has refused.
  void retry();

 private:
  static constexpr std::chrono::milliseconds firstPause{100};
  static constexpr std::chrono::milliseconds longestPause{30'000};

  struct Connection;
  struct Pending;
  struct Rest;
  using PendingPtr = std::shared_ptr<Pending>;

  std::shared_ptr<Connection> connection() const;
  void ask(Group group);
  void answer(std::size_t question, std::optional<DropReason> reason);
  /// Stores the events, or drops them for the reason.
  void finish(Group group, std::optional<DropReason> reason);
  void drop(const Group& group, DropReason reason);
  void drop(const Pending& pending, DropReason reason);
  void storeNext(const std::shared_ptr<Rest>& rest);
  void store(const AcceptedEvent& accepted, const std::shared_ptr<const void>& part);
  void store(const PendingPtr& pending);
  void onRefused(const PendingPtr& pending, const Error& failure);
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
  std::vector<PendingPtr> refused_;
  std::chrono::milliseconds pause_ = firstPause;
  bool isRetryScheduled_ = false;
};

}  // namespace orrelo

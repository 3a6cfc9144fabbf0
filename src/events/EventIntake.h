#pragma once

#include "config/FetchConfigUseCase.h"
#include "events/EventRecord.h"
#include "events/SaveEventUseCase.h"

#include <orrelo/platform/EventJournal.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace orrelo {

/// Takes accepted events into the stores, so that none is lost from the moment at which `accept` returns. The
/// caller's thread writes a record to the journal. A worker then asks the configuration whether a host's
/// event may be stored, hands it to the store, and releases the record after the commit. An event that a
/// store refuses is tried again with growing pauses until it is a day old. Where the journal refuses a
/// record, the event takes the same way from memory alone. There is one intake per process. Any thread.
class EventIntake {
 public:
  /// The events that may wait in memory alone.
  static constexpr std::size_t maximumHeapSize = std::size_t{16} * 1024 * 1024;

  static EventIntake& shared();

  /// What `Orrelo::initialize` provides.
  struct Destination {
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
    SaveEventUseCase saveEventUseCase;
  };

  /// Replaces the destination and adopts the events that ended processes have left, now and once a minute.
  /// Events whose question of the configuration has no answer yet are dropped, except adopted ones, which ask
  /// again; events whose question was not asked yet ask the new configuration.
  void connect(Destination destination);

  /// Accepts an event of the host at the current time for the current user. It writes nothing if the
  /// configuration in memory has disabled the kit. An event that neither the journal nor the memory has room
  /// for is refused with a log line.
  void accept(std::string_view name, EventValues&& values);
  /// Accepts an event of the kit, which no configuration can disable.
  void accept(const BIEvent& event);

  /// Waits until all events accepted before the call are committed or dropped. False at the timeout, on a
  /// thread of the kit and in a forked child.
  bool flush(std::chrono::milliseconds timeout);
  /// Calls `completion` once with the result, on a thread of the kit.
  void flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion);

 private:
  struct Queued;
  struct Pending;
  struct State;
  using PendingPtr = std::shared_ptr<Pending>;
  using Group = std::vector<PendingPtr>;

  EventIntake();

  static void processShared();

  bool isDisabled() const;
  void accept(const EventJournal::Record& record, EventValues&& values);
  bool reserveHeap(std::size_t size, EventJournal::Refusal refusal);
  void process();
  void enter(std::span<const Queued> records);
  void ask(Group group);
  void answer(std::size_t question, bool mayStore);
  void finish(const Group& group, bool mayStore);
  void store(const PendingPtr& pending);
  void onRefused(const PendingPtr& pending, const Error& failure);
  void retry();
  void settle(const Group& group);
  void maintain(std::size_t connection);
  void adopt(std::vector<EventJournal::Adopted> records);

  State& state_;
};

}  // namespace orrelo

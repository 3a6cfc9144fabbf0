#pragma once

#include "events/EventGate.h"
#include "events/EventRecord.h"

#include <orrelo/ORLDiagnostics.h>
#include <orrelo/platform/EventJournal.h>

#include <chrono>
#include <cstddef>
#include <functional>
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
  static EventIntake& shared();

  using Destination = EventGate::Destination;

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

  /// False in a forked child of the process that has initialised the kit, whose locks may be held forever.
  bool isUsable() const;
  ORLDiagnostics::Events counts();
  ORLDiagnostics::Journal journalUsage();

 private:
  struct State;

  EventIntake();

  static void processShared();

  void accept(EventJournal::Record record, EventValues&& values);
  void process();
  /// Ends the rest of the worker.
  void hurry();
  void maintain(std::size_t connection);
  void adopt(std::vector<EventJournal::Adopted> records);

  State& state_;
};

}  // namespace orrelo

#pragma once

#include "events/FlushWaiters.h"

#include <orrelo/platform/EventJournal.h>

#include <cstddef>
#include <optional>

namespace orrelo {

/// What an event occupies until it is settled.
struct EventPlace {
  /// In the journal; absent if the event waits in memory alone.
  std::optional<EventJournal::Position> position;
  /// The size that UnwrittenEvents has reserved for it.
  std::size_t reservedSize = 0;
  /// Ascends in the order in which this process has accepted or adopted the events.
  FlushWaiters::Ticket ticket = 0;
};

/// An event that the intake has accepted and that is not settled yet.
struct AcceptedEvent {
  EventJournal::Record record;
  EventPlace place;
  /// An ended process has accepted it.
  bool isAdopted = false;
  /// An earlier commit may have succeeded, or may have been reported as failed after it succeeded.
  bool mayBeStored = false;
};

}  // namespace orrelo

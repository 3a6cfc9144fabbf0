#pragma once

#include "events/EventRecord.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace orrelo {

/// Why an event that was reported will not be delivered.
enum class DropReason : std::uint8_t {
  /// The service's configuration has switched the kit off.
  disabled,
  /// There is no configuration but the default one, which allows no events.
  unconfigured,
  /// Another `initialize` came before the configuration's answer.
  replaced,
  tooOld,
  /// The journal and the memory for events are full.
  refused,
  unreadable,
  /// The kit that stores it is gone.
  homeless
};

/// Counts the event, and explains by its name, never by its values, that it is dropped. Any thread.
void explainDroppedEvent(std::string_view name, DropReason reason);
void explainDroppedEvent(const EventJournal::Record& record, DropReason reason);

/// Counts events that a store has dropped.
void countDroppedEvents(DropReason reason, std::size_t count);

/// The number of dropped events by reason, without the reasons for which none was.
std::map<std::string, std::uint64_t> droppedEvents();

}  // namespace orrelo

#pragma once

#include "events/EventRecord.h"

#include <cstdint>
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

/// Explains by the event's name, never by its values, that it is dropped.
void explainDroppedEvent(std::string_view name, DropReason reason);
void explainDroppedEvent(const EventJournal::Record& record, DropReason reason);

}  // namespace orrelo

#pragma once

#include "events/Event.h"

#include <orrelo/EventValue.h>
#include <orrelo/platform/EventJournal.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// The pipeline that sends an event.
enum class EventOrigin : std::uint8_t { host = 1, kit = 2 };

/// An event as a record of the journal: its id, time, user, name and values. The values of a host's event
/// keep their types, because converting them to texts would take too long on the host's thread.
struct EventRecord {
  /// What a record holds once its values are texts.
  struct Content {
    EventOrigin origin;
    Event event;
  };

  /// Reserves the space of the journal's header. Small records of a thread share an allocation. Collections
  /// that are nested deeper than any that have a JSON form are left out.
  static EventJournal::Record encode(const Uuid& id, Date time, const std::optional<std::string>& userId,
                                     std::string_view name, const EventValues& values);
  static EventJournal::Record encode(const BIEvent& event);

  /// The origin of the event that a record holds; arbitrary if the bytes are no record of an event.
  static EventOrigin origin(std::string_view record);
  /// Nullopt if the bytes are no record of an event. Malformed UTF-8 is repaired.
  static std::optional<Content> decode(std::string_view record);
};

}  // namespace orrelo

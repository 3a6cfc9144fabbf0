#pragma once

#include "base/StringDictionary.h"

#include <orrelo/Date.h>
#include <orrelo/Uuid.h>

#include <optional>
#include <string>

namespace orrelo {

/// A reported event that has not reached the service yet.
struct Event {
  Uuid id;
  /// The id of the current user when the event was reported.
  std::optional<std::string> userId;
  std::string eventName;
  StringDictionary eventValues;
  Date eventTime;

  friend bool operator==(const Event&, const Event&) = default;
};

/// An event of the kit itself. It has the same fields, but these events have their own store.
using BIEvent = Event;

/// The form for log lines: "Event(id: …, userId: …, …)".
std::string description(const Event& event);
/// The form for log lines: "["key": "value"]", sorted by key; "[:]" if empty.
std::string description(const StringDictionary& values);

/// Makes an event with a new id, the current time and the current user.
Event makeEvent(std::string name, StringDictionary values);

}  // namespace orrelo

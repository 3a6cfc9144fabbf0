#pragma once

#include "base/StringDictionary.h"

#include <orrelo/Date.h>
#include <orrelo/Uuid.h>

#include <optional>
#include <string>

namespace orrelo {

/// Something that happened, from the moment it is reported until the service has it.
struct Event {
  Uuid id;
  /// Of the user at the time of the report.
  std::optional<std::string> userId;
  std::string eventName;
  StringDictionary eventValues;
  Date eventTime;

  friend bool operator==(const Event&, const Event&) = default;
};

/// The kit's own events have the same fields, and a store of their own.
using BIEvent = Event;

/// For log lines: "Event(id: …, userId: …, …)".
std::string description(const Event& event);
/// For log lines: "["key": "value"]" in the order of the keys, "[:]" when empty.
std::string description(const StringDictionary& values);

/// A new event of now and of the current user.
Event makeEvent(std::string name, StringDictionary values);

}  // namespace orrelo

#pragma once

#include "base/StringDictionary.h"

#include <orrelo/EventValue.h>

namespace orrelo {

/// Flattens a host's values to texts. Numbers, dates, identifiers and URLs are converted to their text forms;
/// arrays, sets and dictionaries to JSON. Malformed UTF-8 is repaired.
class OLSEventMapper {
 public:
  /// Throws UnsupportedEventValueException for null, bytes and values of unknown types. A key whose value has
  /// no JSON form, such as an array that contains a date, is dropped with a message on standard error.
  StringDictionary map(const EventValues& values) const;
  /// Throws if `map` would throw.
  static void requireSupported(const EventValues& values);
};

}  // namespace orrelo

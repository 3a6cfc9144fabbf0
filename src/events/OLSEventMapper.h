#pragma once

#include "base/StringDictionary.h"

#include <orrelo/EventValue.h>

namespace orrelo {

/// Flattens a host's values to texts. Numbers, dates, identifiers and URLs give their own text; arrays, sets
/// and dictionaries their JSON. Texts that are not UTF-8 are repaired.
class OLSEventMapper {
 public:
  /// Throws UnsupportedEventValueException for null, bytes and values of unknown types. A key whose value has
  /// no JSON form, such as an array with a date in it, is left out with a line on standard error.
  StringDictionary map(const EventValues& values) const;
  /// Throws what `map` would, and does nothing else.
  static void requireSupported(const EventValues& values);
};

}  // namespace orrelo

#pragma once

#include "base/Json.h"

#include <orrelo/EventValue.h>

namespace orrelo {

/// The members of a JSON object as values of an event; the first of repeated ones.
EventDictionary eventDictionary(const JsonObject& json);

}  // namespace orrelo

#pragma once

#include <orrelo/EventValue.h>

#include <string>
#include <string_view>
#include <vector>

namespace orrelo::notification {

/// A payload from a JSON object. Values that are nested in more than 100 collections are read as null. Throws
/// std::runtime_error with what is wrong.
EventDictionary payloadOf(std::string_view json);

/// Payloads from an array of such objects. Throws std::runtime_error with what is wrong.
std::vector<EventDictionary> payloadsOf(std::string_view json);

/// A payload from a file with a JSON object. Throws std::runtime_error with what is wrong.
EventDictionary readPayload(const std::string& file);

}  // namespace orrelo::notification

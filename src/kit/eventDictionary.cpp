#include "kit/eventDictionary.h"

namespace orrelo {
namespace {

EventValue toEventValue(const JsonValue& json);

EventArray toArray(const JsonArray& json) {
  EventArray values;
  values.reserve(json.size());
  json.forEach([&](const JsonValue& value) { values.push_back(toEventValue(value)); });
  return values;
}

// The recursion is limited by the parser's maximum depth.
EventValue toEventValue(const JsonValue& json) {
  if (const auto text = json.asText()) return *text;
  if (const auto integer = json.asInteger()) return *integer;
  if (const auto number = json.asNumber()) return *number;
  if (const auto boolean = json.asBoolean()) return *boolean;
  if (const auto object = json.asObject()) return eventDictionary(*object);
  if (const auto array = json.asArray()) return toArray(*array);
  return nullptr;
}

}  // namespace

EventDictionary eventDictionary(const JsonObject& json) {
  EventDictionary values;
  // The first of repeated keys is kept, as everywhere in the kit.
  json.forEach([&](std::string_view key, const JsonValue& value) {
    if (!values.contains(key)) values.emplace(key, toEventValue(value));
  });
  return values;
}

}  // namespace orrelo

#include "events/EventRemoteDTO.h"

#include "network/RFC3339DateParser.h"

namespace orrelo {

EventRemoteDTO::EventRemoteDTO(const Event& event)
    : id(event.id.text()),
      userId(event.userId),
      eventName(event.eventName),
      eventTime(RFC3339DateParser::text(event.eventTime)),
      eventValues(event.eventValues) {}

void EventRemoteDTO::encode(JsonWriter& json) const {
  json.beginObject();
  for (const auto& [key, value] : eventValues) {
    const bool isOverwritten =
        key == "event_id" || key == "event_name" || key == "event_time" || (key == "user_id" && userId);
    if (!isOverwritten) json.field(key, value);
  }
  json.field("event_id", id).field("event_name", eventName).field("event_time", eventTime);
  if (userId) json.field("user_id", *userId);
  json.endObject();
}

}  // namespace orrelo

#include "events/Event.h"

#include "model/UserManager.h"
#include "network/RFC3339DateParser.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>

#include <utility>

namespace orrelo {

std::string description(const StringDictionary& values) {
  if (values.empty()) return "[:]";
  std::string text = "[";
  for (const auto& [key, value] : values) {
    if (text.size() > 1) text += ", ";
    text += '"' + key + "\": \"" + value + '"';
  }
  return text + "]";
}

std::string description(const Event& event) {
  return "Event(id: " + event.id.text() + ", userId: " + event.userId.value_or("nil") +
         ", eventName: " + event.eventName + ", eventValues: " + description(event.eventValues) +
         ", eventTime: " + RFC3339DateParser::text(event.eventTime) + ")";
}

Event makeEvent(std::string name, StringDictionary values) {
  const auto& platform = Platform::current();
  return {platform.random->uuid(), currentUserId(), std::move(name), std::move(values),
          platform.clock->now()};
}

}  // namespace orrelo

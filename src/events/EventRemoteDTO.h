#pragma once

#include "base/JsonWriter.h"
#include "base/StringDictionary.h"
#include "events/Event.h"

#include <optional>
#include <string>

namespace orrelo {

/// An event as it is sent: one flat object of texts. It starts with the values; "event_id", "event_name",
/// "event_time" and, if there is a user, "user_id" replace values with these names.
struct EventRemoteDTO {
  explicit EventRemoteDTO(const Event& event);

  std::string id;
  std::optional<std::string> userId;
  std::string eventName;
  std::string eventTime;
  StringDictionary eventValues;

  void encode(JsonWriter& json) const;
};

}  // namespace orrelo

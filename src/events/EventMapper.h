#pragma once

#include "base/Json.h"
#include "events/Event.h"
#include "platform/EventDatabase.h"

#include <optional>
#include <vector>

namespace orrelo {

/// A row of the host's store that is no event.
enum class EventMappingError { entityToDtoMappingFailed };
Error makeError(EventMappingError error, std::string message);

/// A row of the kit's own store that is no event.
enum class BIEventMappingError { entityToDtoMappingFailed };
Error makeError(BIEventMappingError error, std::string message);

/// Between an event and its row. The host's store keeps the time as text, the kit's own as a date.
class EventMapper {
 public:
  explicit EventMapper(EventTimeStorage timeStorage) : timeStorage_(timeStorage) {}

  EventRow toRow(const Event& event) const;
  /// Throws entityToDtoMappingFailed of the store's own error when anything but the user is missing or
  /// unreadable in one of the rows.
  std::vector<Event> toEvents(const std::vector<EventRow>& rows) const;

  /// As the store compares it.
  StoredTime toStoredTime(Date time) const;

 private:
  Event toEvent(const EventRow& row, JsonParser& parser) const;
  Error mappingFailed() const;
  std::optional<Date> timeOf(const StoredTime& stored) const;

  EventTimeStorage timeStorage_;
};

}  // namespace orrelo

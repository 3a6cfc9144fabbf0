#pragma once

#include "base/Json.h"
#include "events/Event.h"

#include <orrelo/platform/EventDatabase.h>

#include <optional>
#include <vector>

namespace orrelo {

/// A row of the store of host events is not a valid event.
enum class EventMappingError { entityToDtoMappingFailed };
Error makeError(EventMappingError error, std::string message);

/// A row of the store of the kit's own events is not a valid event.
enum class BIEventMappingError { entityToDtoMappingFailed };
Error makeError(BIEventMappingError error, std::string message);

/// Converts events to rows and back. The store of host events keeps the time as text, the store of the kit's
/// own events as a date.
class EventMapper {
 public:
  explicit EventMapper(EventTimeStorage timeStorage) : timeStorage_(timeStorage) {}

  EventRow toRow(const Event& event) const;
  /// Throws EventMappingError or BIEventMappingError, depending on the store, if a field other than the user
  /// is missing or invalid in one of the rows.
  std::vector<Event> toEvents(const std::vector<EventRow>& rows) const;

  /// The time in the store's type, for comparison with stored times.
  StoredTime toStoredTime(Date time) const;

 private:
  Event toEvent(const EventRow& row, JsonParser& parser) const;
  Error mappingFailed() const;
  std::optional<Date> timeOf(const StoredTime& stored) const;

  EventTimeStorage timeStorage_;
};

}  // namespace orrelo

#include "events/EventMapper.h"

#include "base/JsonWriter.h"
#include "network/RFC3339DateParser.h"

namespace orrelo {
namespace {

// In bytes. Any values that a host could store must be readable again, so the limit is far larger than for
// replies of the service.
constexpr std::size_t maximumRowSize = std::size_t{1} << 30;

std::optional<StringDictionary> valuesOf(const std::optional<std::string>& json, JsonParser& parser) {
  if (!json) return std::nullopt;
  try {
    StringDictionary values;
    bool areTexts = true;
    parser.parse(*json).objectValue().forEach([&](std::string_view key, const JsonValue& value) {
      if (const auto text = value.asText()) {
        values.set(std::string(key), std::string(*text));
      } else {
        areTexts = false;
      }
    });
    return areTexts ? std::optional(std::move(values)) : std::nullopt;
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace

Error makeError(EventMappingError, std::string message) {
  return Error("EventMappingError", "entityToDtoMappingFailed", std::move(message));
}

Error makeError(BIEventMappingError, std::string message) {
  return Error("BIEventMappingError", "entityToDtoMappingFailed", std::move(message));
}

StoredTime EventMapper::toStoredTime(Date time) const {
  if (timeStorage_ == EventTimeStorage::date) return time;
  return RFC3339DateParser::text(time);
}

std::optional<Date> EventMapper::timeOf(const StoredTime& stored) const {
  if (timeStorage_ == EventTimeStorage::date) {
    const auto* const date = std::get_if<Date>(&stored);
    return date != nullptr ? std::optional(*date) : std::nullopt;
  }
  const auto* const text = std::get_if<std::string>(&stored);
  return text != nullptr ? RFC3339DateParser::parse(*text) : std::nullopt;
}

EventRow EventMapper::toRow(const Event& event) const {
  JsonWriter json(JsonWriter::Style::pretty);
  json.dictionary(event.eventValues);
  return {event.id.text(), event.userId, event.eventName, toStoredTime(event.eventTime),
          std::move(json).result()};
}

std::vector<Event> EventMapper::toEvents(const std::vector<EventRow>& rows) const {
  JsonParser parser(maximumRowSize);
  std::vector<Event> events;
  events.reserve(rows.size());
  for (const auto& row : rows) events.push_back(toEvent(row, parser));
  return events;
}

Event EventMapper::toEvent(const EventRow& row, JsonParser& parser) const {
  const auto id = row.eventId ? Uuid::parse(*row.eventId) : std::nullopt;
  const auto time = timeOf(row.eventTime);
  auto values = valuesOf(row.eventValues, parser);
  if (!id || !row.eventName || !time || !values) throw mappingFailed();
  return {*id, row.userId, *row.eventName, *std::move(values), *time};
}

Error EventMapper::mappingFailed() const {
  constexpr auto message = "Some of required property is nil";
  if (timeStorage_ == EventTimeStorage::date)
    return makeError(BIEventMappingError::entityToDtoMappingFailed, message);
  return makeError(EventMappingError::entityToDtoMappingFailed, message);
}

}  // namespace orrelo

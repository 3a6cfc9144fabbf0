#include "events/EventRemoteDataSource.h"

#include "network/RFC3339DateParser.h"
#include "reactive/Observable.h"

namespace orrelo {
namespace {

reactive::Observable<HTTPReply> post(const NetworkConfig& config, HTTPClient& client, std::string path,
                                     std::string body) {
  URLRequestBuilder builder(URLRequestBuilder::Method::post);
  builder.baseUrl = config.baseUrl;
  builder.path = std::move(path);
  builder.headers = config.headers;
  builder.body = std::move(body);
  return send(builder, client);
}

}  // namespace

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

reactive::Observable<Event> EventRemoteDataSource::send(const Event& event) const {
  JsonWriter json;
  EventRemoteDTO(event).encode(json);
  return post(networkConfig_, *httpClient_, "/event", std::move(json).result())
      .map([event](const HTTPReply&) { return event; });
}

reactive::Observable<reactive::Unit> BIEventRemoteDataSource::send(const std::vector<BIEvent>& events) const {
  JsonWriter json;
  json.beginArray();
  for (const auto& event : events) EventRemoteDTO(event).encode(json);
  json.endArray();
  return post(networkConfig_, *httpClient_, "/events", std::move(json).result()).map([](const HTTPReply&) {
    return reactive::Unit{};
  });
}

}  // namespace orrelo

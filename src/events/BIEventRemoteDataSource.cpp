#include "events/BIEventRemoteDataSource.h"

#include "base/JsonWriter.h"
#include "events/EventRemoteDTO.h"
#include "events/postEvents.h"
#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

reactive::Observable<reactive::Unit> BIEventRemoteDataSource::send(const std::vector<BIEvent>& events) const {
  JsonWriter json;
  json.beginArray();
  for (const auto& event : events) EventRemoteDTO(event).encode(json);
  json.endArray();
  return postEvents(networkConfig_, *httpClient_, "/events", std::move(json).result())
      .map([](const HTTPReply&) { return reactive::Unit{}; });
}

}  // namespace orrelo

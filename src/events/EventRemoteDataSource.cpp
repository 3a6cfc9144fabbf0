#include "events/EventRemoteDataSource.h"

#include "base/JsonWriter.h"
#include "events/EventRemoteDTO.h"
#include "events/postEvents.h"
#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

reactive::Observable<Event> EventRemoteDataSource::send(const Event& event) const {
  JsonWriter json;
  EventRemoteDTO(event).encode(json);
  return postEvents(networkConfig_, *httpClient_, "/event", std::move(json).result())
      .map([event](const HTTPReply&) { return event; });
}

}  // namespace orrelo

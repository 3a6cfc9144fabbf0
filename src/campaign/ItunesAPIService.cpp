#include "campaign/ItunesAPIService.h"

#include "base/Json.h"
#include "reactive/Observable.h"

namespace orrelo {

ITunesResponse ITunesResponse::decode(std::string_view json) {
  JsonParser parser;
  const auto object = parser.parse(json).objectValue();
  ITunesResponse response{.resultCount = object.integer("resultCount"), .results = {}};
  object.array("results").forEach([&](const JsonValue& row) {
    const auto app = row.objectValue();
    response.results.push_back({app.text("bundleId"), app.integer("trackId")});
  });
  return response;
}

reactive::Observable<ITunesResponse> ItunesAPIServiceImpl::lookup(const std::string& bundleId) {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = baseUrl_ + "/lookup";
  builder.queryItems = {{"bundleId", bundleId}};
  return send(builder, *httpClient_).observeOn(scheduler_).map([](const HTTPReply& reply) {
    return ITunesResponse::decode(reply.data);
  });
}

}  // namespace orrelo

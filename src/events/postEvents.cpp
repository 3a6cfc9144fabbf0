#include "events/postEvents.h"

#include <utility>

namespace orrelo {

reactive::Observable<HTTPReply> postEvents(const NetworkConfig& config, HTTPClient& client, std::string path,
                                           std::string body) {
  URLRequestBuilder builder(URLRequestBuilder::Method::post);
  builder.baseUrl = config.baseUrl;
  builder.path = std::move(path);
  builder.headers = config.headers;
  builder.body = std::move(body);
  return send(builder, client);
}

}  // namespace orrelo

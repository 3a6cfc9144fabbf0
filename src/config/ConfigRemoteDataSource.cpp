#include "config/ConfigRemoteDataSource.h"

#include "config/FetchConfigResponse.h"
#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<Config> ConfigRemoteDataSource::fetch() const {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/config";
  builder.headers = networkConfig_.headers;
  return send(builder, *httpClient_).map([](const HTTPReply& reply) {
    return FetchConfigResponse::decode(reply.data).toConfig();
  });
}

}  // namespace orrelo

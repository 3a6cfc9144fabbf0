#include "push/PushTokenRepository.h"

#include "network/HTTPClient.h"
#include "push/SaveTokenRequest.h"
#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<reactive::Unit> PushTokenRepositoryImpl::saveToken(const PushToken& token,
                                                                        const std::string& userId) {
  URLRequestBuilder builder(URLRequestBuilder::Method::post);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/token";
  builder.headers = withJsonContentType(withUser(networkConfig_.headers, userId));
  builder.body = SaveTokenRequest{token.rawValue, userId}.encode();
  HTTPClientImpl httpClient;
  return send(builder, httpClient).map([](const HTTPReply&) { return reactive::Unit(); });
}

}  // namespace orrelo

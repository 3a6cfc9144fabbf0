#include "inappmessage/InAppMessageRepository.h"

#include "inappmessage/FetchInAppMessageResponse.h"
#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<std::vector<InAppMessage>> InAppMessageRepositoryImpl::fetch(const std::string& buid) {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/in-app-message/banner";
  builder.headers = withUser(networkConfig_.headers, buid);
  return send(builder, *httpClient_).observeOn(scheduler_).map([](const HTTPReply& reply) {
    std::vector<InAppMessage> messages;
    for (const auto& row : FetchInAppMessageResponse::decode(reply.data).items) messages.push_back(row.map());
    return messages;
  });
}

}  // namespace orrelo

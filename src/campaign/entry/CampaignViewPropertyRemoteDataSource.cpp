#include "campaign/entry/CampaignViewPropertyRemoteDataSource.h"

#include "campaign/CampaignRemoteDataSource.h"
#include "campaign/entry/FloatingActionButtonPropertyDTO.h"
#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<FloatingActionButtonProperty> CampaignViewPropertyRemoteDataSource::fetch(
    const std::string& userId) const {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/fab";
  builder.headers = withUser(networkConfig_.headers, userId);
  return send(builder, *httpClient_).observeOn(scheduler_).map([](const HTTPReply& reply) {
    return FloatingActionButtonPropertyDTO::decode(reply.data).toProperty();
  });
}

}  // namespace orrelo

#include "campaign/CampaignRemoteDataSource.h"

#include "base/PageOmissions.h"
#include "campaign/CampaignDTO.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <utility>

namespace orrelo {

reactive::Observable<Campaign> CampaignRemoteDataSource::fetch(const std::string& campaignId,
                                                               const std::string& userId) const {
  const auto path = "/campaigns/" + campaignId;
  return get(path, userId).map([mapper = mapper_, path](const HTTPReply& reply) {
    return PageOmissions::collect(Platform::current().clock->now(), path,
                                  [&] { return mapper.map(CampaignDTO::decode(reply.data)); });
  });
}

reactive::Observable<std::vector<Campaign>> CampaignRemoteDataSource::fetchAll(
    const std::string& userId) const {
  return get("/campaigns", userId).map([mapper = mapper_](const HTTPReply& reply) {
    return PageOmissions::collect(Platform::current().clock->now(), "/campaigns", [&] {
      return CampaignDTO::decodeList(reply.data,
                                     [&](CampaignDTO&& dto) { return mapper.map(std::move(dto)); });
    });
  });
}

reactive::Observable<HTTPReply> CampaignRemoteDataSource::get(const std::string& path,
                                                              const std::string& userId) const {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = path;
  builder.headers = withUser(networkConfig_.headers, userId);
  return send(builder, *httpClient_).observeOn(scheduler_);
}

}  // namespace orrelo

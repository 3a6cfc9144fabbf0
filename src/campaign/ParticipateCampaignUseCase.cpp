#include "campaign/ParticipateCampaignUseCase.h"

#include "campaign/CampaignDataSources.h"
#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<Campaign> ParticipateCampaignUseCaseImpl::participate(const Campaign& campaign,
                                                                           const std::string& url,
                                                                           const std::string& userId) {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = url;
  builder.headers = withUser(networkConfig_.headers, userId);
  // The reply is the page alone; whose page it is, the screen knows.
  CampaignDTO whose{campaign.id, campaign.label, campaign.name, campaign.iconUrl, {}};
  return send(builder, *httpClient_)
      .observeOn(scheduler_)
      .map([mapper = mapper_, whose = std::move(whose)](const HTTPReply& reply) {
        auto dto = whose;
        dto.page = CampaignDTO::PageResponse::decode(reply.data);
        return mapper.map(std::move(dto));
      });
}

}  // namespace orrelo

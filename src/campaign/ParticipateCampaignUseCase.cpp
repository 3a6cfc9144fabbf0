#include "campaign/ParticipateCampaignUseCase.h"

#include "base/PageOmissions.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

namespace orrelo {
namespace {

// The query may name the user.
std::string pathOf(const std::string& url) {
  return url.substr(0, url.find('?'));
}

}  // namespace

reactive::Observable<Campaign> ParticipateCampaignUseCaseImpl::participate(const Campaign& campaign,
                                                                           const std::string& url,
                                                                           const std::string& userId) {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = url;
  builder.headers = withUser(networkConfig_.headers, userId);
  // The reply contains only the page; the other fields are those of the displayed campaign.
  CampaignDTO displayed{campaign.id, campaign.label, campaign.name, campaign.iconUrl, {}};
  return send(builder, *httpClient_)
      .observeOn(scheduler_)
      .map([mapper = mapper_, displayed = std::move(displayed), path = pathOf(url)](const HTTPReply& reply) {
        return PageOmissions::collect(Platform::current().clock->now(), path, [&] {
          auto dto = displayed;
          dto.page = CampaignDTO::PageResponse::decode(reply.data);
          return mapper.map(std::move(dto));
        });
      });
}

}  // namespace orrelo

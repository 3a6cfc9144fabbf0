#include "rewards/gifticon/GifticonService.h"

#include "reactive/Observable.h"
#include "rewards/gifticon/GifticonRemoteDTO.h"
#include "rewards/gifticon/PublishGifticonRequestDTO.h"

namespace orrelo {

reactive::Observable<std::vector<Gifticon>> GifticonServiceImpl::fetch(const std::string& userId) {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/gifticons";
  builder.headers = withUser(networkConfig_.headers, userId);
  return listFrom(builder);
}

reactive::Observable<std::vector<Gifticon>> GifticonServiceImpl::publish(const std::string& gifticonId,
                                                                         const std::string& userId) {
  URLRequestBuilder builder(URLRequestBuilder::Method::post);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/gifticons/download";
  builder.headers = withJsonContentType(withUser(networkConfig_.headers, userId));
  builder.body = PublishGifticonRequestDTO{gifticonId}.encode();
  return listFrom(builder);
}

reactive::Observable<std::vector<Gifticon>> GifticonServiceImpl::listFrom(
    const URLRequestBuilder& builder) const {
  return send(builder, *httpClient_).observeOn(scheduler_).map([](const HTTPReply& reply) {
    std::vector<Gifticon> gifticons;
    for (const auto& row : GifticonRemoteDTO::decodeList(reply.data)) gifticons.push_back(row.map());
    return gifticons;
  });
}

}  // namespace orrelo

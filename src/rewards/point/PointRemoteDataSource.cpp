#include "rewards/point/PointRemoteDataSource.h"

#include "base/numberText.h"
#include "reactive/Observable.h"
#include "rewards/point/FetchPointResponse.h"
#include "rewards/point/PointRedemptionHistoryRemoteDTO.h"

namespace orrelo {

reactive::Observable<Point> PointRemoteDataSource::fetchPoint(const std::string& userId) const {
  return send(requestTo("/my-point", userId), *httpClient_)
      .observeOn(scheduler_)
      .map([](const HTTPReply& reply) { return FetchPointResponse::decode(reply.data).toPoint(); });
}

reactive::Observable<std::vector<PointRedemptionHistory>> PointRemoteDataSource::fetchHistories(
    const std::string& userId, std::int64_t page) const {
  auto request = requestTo("/point-redemption-history", userId);
  request.queryItems = {{"page", numberText(page)}};
  return send(request, *httpClient_).observeOn(scheduler_).map([](const HTTPReply& reply) {
    return decodePointRedemptionHistories(reply.data);
  });
}

URLRequestBuilder PointRemoteDataSource::requestTo(const std::string& path, const std::string& userId) const {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = path;
  builder.headers = withUser(networkConfig_.headers, userId);
  return builder;
}

}  // namespace orrelo

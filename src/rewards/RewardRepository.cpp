#include "rewards/RewardRepository.h"

#include "reactive/Combining.h"
#include "reactive/Observable.h"

#include <tuple>

namespace orrelo {

reactive::Observable<Reward> RewardRepositoryImpl::fetch(const std::string& userId) {
  const auto plugin = fetchConfigUseCase_->fetch().map([](const Config& config) { return config.plugin; });
  // The stream emits the balance's events as values: its failure does not end the other streams.
  const auto point = fetchPointUseCase_->fetch(userId).asObservable().materialize();
  return reactive::zip(plugin, point, fetchCount(userId))
      .map([mapper = mapper_](const std::tuple<Plugin, reactive::Event<Point>, RewardCount>& parts) {
        const auto& [switchedOn, event, count] = parts;
        const auto* const balance = event.element();
        return mapper.map(switchedOn, balance != nullptr ? std::optional(*balance) : std::nullopt, count);
      });
}

reactive::Observable<RewardCount> RewardRepositoryImpl::fetchCount(const std::string& userId) const {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = "/my-rewards";
  builder.headers = withUser(networkConfig_.headers, userId);
  return send(builder, *httpClient_).observeOn(scheduler_).map([mapper = mapper_](const HTTPReply& reply) {
    return mapper.map(RewardCountDTO::decode(reply.data));
  });
}

}  // namespace orrelo

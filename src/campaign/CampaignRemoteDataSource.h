#pragma once

#include "campaign/CampaignMapper.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

/// GET "/campaigns" and GET "/campaigns/<id>". The streams are cold and emit one element or the error of the
/// network, the service or the decoding. Replies are decoded on `scheduler`, not on the network's thread.
class CampaignRemoteDataSource {
 public:
  CampaignRemoteDataSource(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                           reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<Campaign> fetch(const std::string& campaignId, const std::string& userId) const;
  /// The campaigns in the order of the service.
  reactive::Observable<std::vector<Campaign>> fetchAll(const std::string& userId) const;

 private:
  reactive::Observable<HTTPReply> get(const std::string& path, const std::string& userId) const;

  NetworkConfig networkConfig_;
  CampaignMapper mapper_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo

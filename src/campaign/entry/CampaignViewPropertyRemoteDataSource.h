#pragma once

#include "campaign/entry/FloatingActionButtonProperty.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// GET "/fab". The stream is cold and emits one element or the error of the network, the service or the
/// decoding. The reply is decoded on `scheduler`, not on the network's thread.
class CampaignViewPropertyRemoteDataSource {
 public:
  CampaignViewPropertyRemoteDataSource(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                                       reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<FloatingActionButtonProperty> fetch(const std::string& userId) const;

 private:
  NetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo

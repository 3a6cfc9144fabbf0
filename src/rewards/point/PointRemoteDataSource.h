#pragma once

#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"
#include "rewards/point/Point.h"
#include "rewards/point/PointRedemptionHistory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

/// Its base URL ends in "/pointsystem".
using PointNetworkConfig = NetworkConfig;

/// GET "/my-point" and GET "/point-redemption-history". The streams are cold and emit one element or the
/// error of the network, the service or the decoding. Replies are decoded on `scheduler`, not on the
/// network's thread.
class PointRemoteDataSource {
 public:
  PointRemoteDataSource(PointNetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                        reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<Point> fetchPoint(const std::string& userId) const;
  /// The rows of a page in the order of the service; the first page is 0.
  reactive::Observable<std::vector<PointRedemptionHistory>> fetchHistories(const std::string& userId,
                                                                           std::int64_t page) const;

 private:
  URLRequestBuilder requestTo(const std::string& path, const std::string& userId) const;

  PointNetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo

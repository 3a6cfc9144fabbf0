#pragma once

#include "config/FetchConfigUseCase.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"
#include "rewards/Reward.h"
#include "rewards/RewardMapper.h"
#include "rewards/point/FetchPointUseCase.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class RewardRepository {
 public:
  virtual ~RewardRepository() = default;

  /// A cold stream of one element, or the error of the configuration or of the counts; a failure of the
  /// balance only makes it absent. Any thread.
  virtual reactive::Observable<Reward> fetch(const std::string& userId) = 0;
};

/// Assembles the rewards from the configuration, the balance and GET "/my-rewards". The counts are decoded on
/// `scheduler`, not on the network's thread.
class RewardRepositoryImpl final : public RewardRepository {
 public:
  RewardRepositoryImpl(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                       std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                       std::shared_ptr<FetchPointUseCase> fetchPointUseCase, reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        fetchConfigUseCase_(std::move(fetchConfigUseCase)),
        fetchPointUseCase_(std::move(fetchPointUseCase)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<Reward> fetch(const std::string& userId) override;

 private:
  reactive::Observable<RewardCount> fetchCount(const std::string& userId) const;

  const NetworkConfig networkConfig_;
  RewardMapper mapper_;
  const std::shared_ptr<HTTPClient> httpClient_;
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  const std::shared_ptr<FetchPointUseCase> fetchPointUseCase_;
  const reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo

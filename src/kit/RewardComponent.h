#pragma once

#include "config/FetchConfigUseCase.h"
#include "network/NetworkConfig.h"
#include "rewards/FetchRewardUseCase.h"
#include "rewards/RewardViewModel.h"
#include "rewards/point/FetchPointUseCase.h"

#include <memory>

namespace orrelo {

/// Builds the summary of a user's rewards.
class RewardComponent {
 public:
  RewardComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                  const std::shared_ptr<FetchPointUseCase>& fetchPointUseCase,
                  const NetworkConfig& networkConfig);

  const std::shared_ptr<FetchRewardUseCase> fetchRewardsUseCase;
  const std::shared_ptr<RewardViewModel> viewModel;
};

}  // namespace orrelo

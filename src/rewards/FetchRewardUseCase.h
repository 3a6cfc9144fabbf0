#pragma once

#include "reactive/ObservableType.h"
#include "rewards/Reward.h"
#include "rewards/RewardRepository.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class FetchRewardUseCase {
 public:
  virtual ~FetchRewardUseCase() = default;

  /// See RewardRepository::fetch.
  virtual reactive::Observable<Reward> fetch(const std::string& userId) = 0;
};

class FetchRewardUseCaseImpl final : public FetchRewardUseCase {
 public:
  explicit FetchRewardUseCaseImpl(std::shared_ptr<RewardRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<Reward> fetch(const std::string& userId) override {
    return repository_->fetch(userId);
  }

 private:
  const std::shared_ptr<RewardRepository> repository_;
};

}  // namespace orrelo

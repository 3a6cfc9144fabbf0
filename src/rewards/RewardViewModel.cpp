#include "rewards/RewardViewModel.h"

#include "config/withBrandTheme.h"
#include "reactive/Observable.h"

#include <utility>

namespace orrelo {
namespace {

std::optional<RewardViewModel::Output> outcomeOf(const reactive::Event<RewardViewModel::Loaded>& event) {
  if (const auto* const loaded = event.element()) return *loaded;
  if (const auto* const error = event.error()) return RewardViewModel::Failed{*error};
  return std::nullopt;
}

}  // namespace

std::shared_ptr<RewardViewModel> RewardViewModel::create(
    std::shared_ptr<FetchRewardUseCase> fetchRewardUseCase,
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase) {
  return std::shared_ptr<RewardViewModel>(
      new RewardViewModel(std::move(fetchRewardUseCase), std::move(fetchConfigUseCase)));
}

RewardViewModel::RewardViewModel(std::shared_ptr<FetchRewardUseCase> fetchRewardUseCase,
                                 std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase)
    : fetchRewardUseCase_(std::move(fetchRewardUseCase)),
      fetchConfigUseCase_(std::move(fetchConfigUseCase)) {}

reactive::Observable<RewardViewModel::Output> RewardViewModel::transform(const Input& input) const {
  return input.trigger.asObservable().flatMapLatest(
      [weak = weak_from_this()](const std::optional<std::string>& userId) {
        const auto self = weak.lock();
        const auto loads = self ? self->load(userId)
                                : reactive::error<Loaded>(makeError(OrreloError::referenceDeallocation));
        return reactive::merge<Output>(
            {reactive::just(Output(Loading{})), loads.materialize().compactMap(&outcomeOf)});
      });
}

reactive::Observable<RewardViewModel::Loaded> RewardViewModel::load(
    const std::optional<std::string>& userId) const {
  if (!userId) return reactive::error<Loaded>(makeError(OrreloError::notLoggedIn));
  return withBrandTheme(fetchRewardUseCase_->fetch(*userId), *fetchConfigUseCase_)
      .map([](const std::tuple<Reward, BrandTheme>& pair) {
        return Loaded{std::get<0>(pair), std::get<1>(pair)};
      });
}

}  // namespace orrelo

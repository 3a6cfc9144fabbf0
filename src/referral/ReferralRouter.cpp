#include "referral/ReferralRouter.h"

#include "reactive/Observable.h"
#include "ui/followOnMain.h"

namespace orrelo {

void ReferralRouter::route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                           std::function<void(const Error&)> onFailure) {
  const FollowSchedulers schedulers;
  const auto onTheme = [weak = weak_from_this(), weakFrom = std::weak_ptr(from),
                        onSuccess = std::move(onSuccess), onFailure](const BrandTheme& theme) {
    const auto self = weak.lock();
    const auto presenting = weakFrom.lock();
    if (!self || !presenting) return onFailure(makeError(OrreloError::referenceDeallocation));
    presenting->present(self->referralViewControllerFactory_->make(theme), true);
    onSuccess();
  };
  // In no bag of this router: a route that is under way when the router is destroyed must report its failure.
  fetchConfigUseCase_->fetch()
      .map([](const Config& config) { return config.brandTheme; })
      .subscribeOn(schedulers.background)
      .observeOn(schedulers.main)
      .subscribe({.onNext = onTheme, .onError = onFailure});
}

}  // namespace orrelo

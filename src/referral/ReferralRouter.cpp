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
    if (!self) return onFailure(makeError(OrreloError::referenceDeallocation));
    if (!presenting) return onFailure(makeError(ReferenceError::deallocated));
    presenting->present(self->referralViewControllerFactory_->make(theme), true);
    onSuccess();
  };
  // The subscription is not held in a bag, since a route under way must report its failure when the router is
  // destroyed.
  fetchConfigUseCase_->fetch()
      .map([](const Config& config) { return config.brandTheme; })
      .subscribeOn(schedulers.background)
      .observeOn(schedulers.main)
      .subscribe({.onNext = onTheme, .onError = onFailure});
}

}  // namespace orrelo

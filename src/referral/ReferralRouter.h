#pragma once

#include "config/FetchConfigUseCase.h"
#include "referral/ReferralViewControllerFactory.h"
#include "ui/Router.h"

#include <memory>
#include <utility>

namespace orrelo {

/// Presents the screen for a friend's code in the colours of the configuration.
class ReferralRouter final : public Router, public std::enable_shared_from_this<ReferralRouter> {
 public:
  ReferralRouter(std::shared_ptr<ReferralViewControllerFactory> referralViewControllerFactory,
                 std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase)
      : referralViewControllerFactory_(std::move(referralViewControllerFactory)),
        fetchConfigUseCase_(std::move(fetchConfigUseCase)) {}

  /// Fails with the error of the configuration, with OrreloError referenceDeallocation if this router is
  /// destroyed meanwhile, and with ReferenceError deallocated if `from` is. Both callbacks must be set.
  void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
             std::function<void(const Error&)> onFailure) override;

 private:
  const std::shared_ptr<ReferralViewControllerFactory> referralViewControllerFactory_;
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
};

}  // namespace orrelo

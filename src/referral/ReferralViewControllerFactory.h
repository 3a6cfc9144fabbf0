#pragma once

#include "config/Config.h"
#include "referral/ReferralService.h"
#include "ui/ViewController.h"

#include <memory>
#include <utility>

namespace orrelo {

class ReferralViewControllerFactory {
 public:
  virtual ~ReferralViewControllerFactory() = default;

  /// A new screen for a friend's code, in these colours. Main thread.
  virtual std::shared_ptr<ViewController> make(const BrandTheme& brandTheme) const = 0;
};

/// Creates each screen with its own view model.
class ReferralViewControllerFactoryImpl final : public ReferralViewControllerFactory {
 public:
  explicit ReferralViewControllerFactoryImpl(std::shared_ptr<ReferralService> referralService)
      : referralService_(std::move(referralService)) {}

  std::shared_ptr<ViewController> make(const BrandTheme& brandTheme) const override;

 private:
  std::shared_ptr<ReferralService> referralService_;
};

}  // namespace orrelo

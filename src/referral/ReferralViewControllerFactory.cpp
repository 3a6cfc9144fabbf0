#include "referral/ReferralViewControllerFactory.h"

#include "referral/ReferralViewController.h"

namespace orrelo {

std::shared_ptr<ViewController> ReferralViewControllerFactoryImpl::make(const BrandTheme& brandTheme) const {
  return ReferralViewController::create(std::make_shared<const ReferralViewModel>(referralService_),
                                        brandTheme);
}

}  // namespace orrelo

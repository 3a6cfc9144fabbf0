#pragma once

#include "campaign/FetchCampaignsUseCase.h"
#include "campaign/referral/Referral.h"
#include "reactive/Traits.h"

#include <string>
#include <utility>

namespace orrelo {

class FetchReferralUseCase {
 public:
  virtual ~FetchReferralUseCase() = default;

  /// The referral of the user's first referral campaign; empty if the user has none. Cold: each subscription
  /// asks the service. Any thread.
  virtual reactive::Maybe<Referral> fetch(const std::string& userId) = 0;
};

class FetchReferralUseCaseImpl final : public FetchReferralUseCase {
 public:
  explicit FetchReferralUseCaseImpl(FetchCampaignsUseCase fetchCampaignsUseCase)
      : fetchCampaignsUseCase_(std::move(fetchCampaignsUseCase)) {}

  reactive::Maybe<Referral> fetch(const std::string& userId) override;

 private:
  FetchCampaignsUseCase fetchCampaignsUseCase_;
};

}  // namespace orrelo

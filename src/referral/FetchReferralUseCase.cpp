#include "referral/FetchReferralUseCase.h"

#include "reactive/Observable.h"

#include <optional>
#include <variant>
#include <vector>

namespace orrelo {

reactive::Maybe<Referral> FetchReferralUseCaseImpl::fetch(const std::string& userId) {
  return fetchCampaignsUseCase_.fetch(userId)
      .compactMap([](const std::vector<Campaign>& campaigns) -> std::optional<Referral> {
        for (const auto& campaign : campaigns) {
          const auto* const found = std::get_if<ReferralCampaign>(&campaign.type);
          if (found != nullptr) return found->referral;
        }
        return std::nullopt;
      })
      .asMaybe();
}

}  // namespace orrelo

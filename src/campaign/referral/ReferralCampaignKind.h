#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

/// Referral pages cannot be shown yet.
struct ReferralCampaignKind {
  using Detail = ReferralCampaignPageDTO;
  using Record = ReferralCampaign;

  static PageDetailDTO decode(const JsonObject&) { return PageDetailDTO::unknown(); }
  static Record map(Detail&&, Campaign&) { return {}; }
  static std::string_view pageName(const Record&) { return "referral"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return ORLCampaignType::referral; }
  static void show(const Record& referral, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

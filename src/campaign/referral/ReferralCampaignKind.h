#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct ReferralCampaignKind {
  using Detail = ReferralCampaignPageDTO;
  using Record = ReferralCampaign;

  static PageDetailDTO decode(const JsonObject& page) { return PageDetailDTO::decodeAs<Detail>(page); }
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record&) { return "referral"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return ORLCampaignType::referral; }
  /// Shows the page, whose box leads to the page `referral`.
  static void show(const Record& referral, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

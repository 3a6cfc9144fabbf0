#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct OptInMarketingCampaignKind {
  using Detail = OptInMarketingCampaignPageDetailDTO;
  using Record = OptInMarketingCampaign;

  static PageDetailDTO decode(const JsonObject& page) { return PageDetailDTO::decodeAs<Detail>(page); }
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record&) { return "opt_in_marketing"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return ORLCampaignType::optInMarketing; }
  /// Shows the page with a button that calls the host's delegate.
  static void show(const Record& optIn, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct StampCampaignKind {
  using Detail = StampCampaignPageDTO;
  using Record = StampCampaign;

  static PageDetailDTO decode(const JsonObject& page) { return PageDetailDTO::decodeAs<Detail>(page); }
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record&) { return "stamp"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return std::nullopt; }
  static void show(const Record& stamp, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

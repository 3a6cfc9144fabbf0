#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct UnknownCampaignKind {
  using Detail = UnknownCampaignDetailDTO;
  using Record = UnknownCampaign;

  static PageDetailDTO decode(const JsonObject&) { return PageDetailDTO::unknown(); }
  static Record map(Detail&&, Campaign&) { return {}; }
  static std::string_view pageName(const Record&) { return "unknown"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return std::nullopt; }
  static void show(const Record& unknown, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

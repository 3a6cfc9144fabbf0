#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

/// Only created by the kit, so it has no page to decode.
struct InduceUpdateCampaignKind {
  using Record = InduceUpdateCampaign;

  static std::string_view pageName(const Record&) { return "unknown"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return std::nullopt; }
  static void show(const Record& update, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

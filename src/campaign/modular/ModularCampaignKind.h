#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct ModularCampaignKind {
  using Detail = ModularCampaignPageDTO;
  using Record = ModularCampaign;

  /// A page of any type may be one.
  static bool matches(std::string_view) { return true; }
  /// A page of which this build can show nothing is unknown.
  static PageDetailDTO decode(const JsonObject& page);
  /// A modular page has its title in its layout, and there alone.
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record& modular);
  static std::optional<ORLCampaignType> publicType(const Record& modular);
  /// With the dialogs of the page over it.
  static void show(const Record& modular, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

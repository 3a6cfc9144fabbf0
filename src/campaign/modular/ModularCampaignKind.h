#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct ModularCampaignKind {
  using Detail = ModularCampaignPageDTO;
  using Record = ModularCampaign;

  /// A page without blocks that this build supports is unknown.
  static PageDetailDTO decode(const JsonObject& page);
  /// The title of a modular page is only taken from its layout.
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record& modular);
  static std::optional<ORLCampaignType> publicType(const Record& modular);
  /// Shows the page and then its dialogs.
  static void show(const Record& modular, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

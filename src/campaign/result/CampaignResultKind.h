#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct CampaignResultKind {
  using Detail = CampaignResultPageDTO;
  using Record = CampaignResult;

  static PageDetailDTO decode(const JsonObject& page) { return PageDetailDTO::decodeAs<Detail>(page); }
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record&) { return "result"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return std::nullopt; }
  /// Shows the page and, only once, its dialog.
  static void show(const Record& result, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

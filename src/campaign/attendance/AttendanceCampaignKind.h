#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct AttendanceCampaignKind {
  using Detail = AttendanceCampaignPageDetailDTO;
  using Record = AttendanceCampaign;

  static PageDetailDTO decode(const JsonObject& page) { return PageDetailDTO::decodeAs<Detail>(page); }
  static Record map(Detail&& dto, Campaign& campaign);
  static std::string_view pageName(const Record&) { return "attendance"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return ORLCampaignType::attendance; }
  /// Shows the page, and presents a reward earned by the check-in.
  static void show(const Record& attendance, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

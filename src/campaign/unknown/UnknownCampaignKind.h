#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct UnknownCampaignKind {
  using Detail = UnknownCampaignDetailDTO;
  using Record = UnknownCampaign;

  /// A page becomes unknown if its kind cannot decode it, never by its type.
  static bool matches(std::string_view) { return false; }
  static PageDetailDTO decode(const JsonObject&) { return PageDetailDTO::unknown(); }
  static Record map(Detail&&, Campaign&) { return {}; }
  static std::string_view pageName(const Record&) { return "unknown"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return std::nullopt; }
  static void show(const Record& unknown, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

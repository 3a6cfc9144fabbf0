#pragma once

#include "campaign/CampaignKinds.h"

namespace orrelo {

struct DeprecatedCampaignKind {
  using Detail = DeprecatedPageDTO;
  using Record = DeprecatedCampaign;

  static PageDetailDTO decode(const JsonObject&) { return {Detail{}, PageDetailDTO::fixedTitle}; }
  /// Deliberately mapped to an unknown campaign, so that the user is asked to update the application. The
  /// record of this kind is never created from a page.
  static UnknownCampaign map(Detail&&, Campaign&) { return {}; }
  static std::string pageName(const Record& deprecated) { return "deprecated(" + deprecated.type + ")"; }
  static std::optional<ORLCampaignType> publicType(const Record&) { return std::nullopt; }
  static void show(const Record& deprecated, const BrandedCampaign& element,
                   const std::shared_ptr<CampaignScreen>& screen);
};

}  // namespace orrelo

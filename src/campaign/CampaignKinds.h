#pragma once

#include "base/Json.h"
#include "campaign/BrandedCampaign.h"
#include "campaign/Campaign.h"
#include "campaign/PageDetailDTO.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace orrelo {

class CampaignScreen;

/// The operations of one kind of campaign, from decoding its page to showing it.
struct CampaignKind {
  /// The index of its detail in PageDetailDTO::Kind; npos for a kind that only the kit creates.
  std::size_t detail = std::variant_npos;
  /// The index of its record in Campaign::CampaignType.
  std::size_t record = std::variant_npos;

  /// Returns whether pages of this type belong to this kind; null if no type selects it.
  bool (*matches)(std::string_view pageType) = nullptr;
  /// Decodes the page's detail; throws a DecodingError.
  PageDetailDTO (*decode)(const JsonObject& page) = nullptr;
  /// Maps the detail to the campaign's record. The fields of `campaign` that are common to all kinds are set;
  /// a kind may replace the title,
  /// and must not use the type.
  void (*map)(PageDetailDTO::Kind&& detail, Campaign& campaign) = nullptr;

  /// The page name in the event "ol_visit".
  std::string (*pageName)(const Campaign& campaign) = nullptr;
  /// The type by which a host can request the campaign; absent if it cannot.
  std::optional<ORLCampaignType> (*publicType)(const Campaign& campaign) = nullptr;
  /// Fills the screen. Main thread.
  void (*show)(const BrandedCampaign& element, const std::shared_ptr<CampaignScreen>& screen) = nullptr;
};

/// Returns the first kind that matches the type of a page.
const CampaignKind& kindOfPage(std::string_view pageType);
const CampaignKind& kindOf(const PageDetailDTO::Kind& detail);
const CampaignKind& kindOf(const Campaign::CampaignType& record);

}  // namespace orrelo

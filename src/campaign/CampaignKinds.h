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

/// A kind of campaign, from the service's page to the screen.
struct CampaignKind {
  /// The place of its detail in PageDetailDTO::Kind; npos for a kind that the kit alone makes.
  std::size_t detail = std::variant_npos;
  /// The place of its record in Campaign::CampaignType.
  std::size_t record = std::variant_npos;

  /// Whether pages of this type are of this kind.
  bool (*matches)(std::string_view pageType) = nullptr;
  /// Reads the page's detail; throws a DecodingError.
  PageDetailDTO (*decode)(const JsonObject& page) = nullptr;
  /// `campaign` has all that is common to the kinds; a kind may give it another title.
  Campaign::CampaignType (*map)(PageDetailDTO::Kind&& detail, Campaign& campaign) = nullptr;

  /// In the event "ol_visit".
  std::string (*pageName)(const Campaign& campaign) = nullptr;
  /// By which a host can ask for the campaign; absent where it cannot.
  std::optional<ORLCampaignType> (*publicType)(const Campaign& campaign) = nullptr;
  /// Fills the screen. Main thread.
  void (*show)(const BrandedCampaign& element, const std::shared_ptr<CampaignScreen>& screen) = nullptr;
};

/// For `matches`.
inline bool contains(std::string_view pageType, std::string_view word) {
  return pageType.find(word) != std::string_view::npos;
}

/// By the type of a page: the first kind that matches.
const CampaignKind& kindOfPage(std::string_view pageType);
const CampaignKind& kindOf(const PageDetailDTO::Kind& detail);
const CampaignKind& kindOf(const Campaign::CampaignType& record);

}  // namespace orrelo

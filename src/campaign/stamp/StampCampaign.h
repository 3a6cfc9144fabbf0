#pragma once

#include "campaign/CampaignInfo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

struct Mission {
  std::string name;
  std::string iconUrl;

  friend bool operator==(const Mission&, const Mission&) = default;
};

/// What can stand on a stamp campaign's page.
enum class StampCampaignComponent { information, mainImage, subImage, notice, stamp, unknown };

/// By the service's word for it; `unknown` for any other word.
StampCampaignComponent stampCampaignComponent(std::string_view word);

/// From top to bottom.
struct StampCampaignLayout {
  std::vector<StampCampaignComponent> componentOrder;

  friend bool operator==(const StampCampaignLayout&, const StampCampaignLayout&) = default;
};

/// A board of missions.
struct StampCampaign {
  std::int64_t columnCount = 0;
  std::vector<Mission> missions;
  std::optional<std::string> mainImageUrl;
  std::optional<std::string> subImageUrl;
  /// Only where the layout asks for it, as the notice.
  std::optional<CampaignInfo> info;
  std::optional<CampaignNotice> notice;
  StampCampaignLayout layout;

  friend bool operator==(const StampCampaign&, const StampCampaign&) = default;
};

}  // namespace orrelo

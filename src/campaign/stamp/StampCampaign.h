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

/// The blocks of a stamp campaign's page.
enum class StampCampaignComponent { information, mainImage, subImage, notice, stamp, unknown };

/// Converts the service's name of a block; any other name is `unknown`.
StampCampaignComponent stampCampaignComponent(std::string_view word);

/// The blocks of the page from top to bottom.
struct StampCampaignLayout {
  std::vector<StampCampaignComponent> componentOrder;

  friend bool operator==(const StampCampaignLayout&, const StampCampaignLayout&) = default;
};

/// A campaign with a board of missions.
struct StampCampaign {
  std::int64_t columnCount = 0;
  std::vector<Mission> missions;
  std::optional<std::string> mainImageUrl;
  std::optional<std::string> subImageUrl;
  /// Only present if the layout contains the block, like the notice.
  std::optional<CampaignInfo> info;
  std::optional<CampaignNotice> notice;
  StampCampaignLayout layout;

  friend bool operator==(const StampCampaign&, const StampCampaign&) = default;
};

}  // namespace orrelo

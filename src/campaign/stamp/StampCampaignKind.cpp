#include "campaign/stamp/StampCampaignKind.h"

#include "campaign/CampaignScreen.h"
#include "campaign/stamp/StampCampaignView.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orrelo {

StampCampaign StampCampaignKind::map(Detail&& dto, Campaign&) {
  StampCampaign campaign{.columnCount = dto.stampDTO.columnCount,
                         .missions = {},
                         .mainImageUrl = std::move(dto.mainImageUrl),
                         .subImageUrl = std::move(dto.subImageUrl),
                         .info = std::nullopt,
                         .notice = std::nullopt,
                         .layout = {}};
  for (auto& mission : dto.stampDTO.mission) {
    campaign.missions.push_back({std::move(mission.name), std::move(mission.iconUrl)});
  }
  const auto& order = dto.layoutDTO.componentOrder;
  std::transform(order.begin(), order.end(), std::back_inserter(campaign.layout.componentOrder),
                 &stampCampaignComponent);
  const auto names = [&](std::string_view word) {
    return std::find(order.begin(), order.end(), word) != order.end();
  };
  if (names("information")) {
    campaign.info =
        CampaignInfo{std::move(dto.firstTitle).value_or(""), std::move(dto.secondTitle).value_or(""),
                     std::move(dto.guideMessage).value_or(""), std::nullopt};
  }
  if (names("notice"))
    campaign.notice = CampaignNotice{std::move(dto.notice).value_or(std::vector<std::string>())};
  return campaign;
}

void StampCampaignKind::show(const StampCampaign& stamp, const BrandedCampaign&,
                             const std::shared_ptr<CampaignScreen>& screen) {
  screen->show(std::make_shared<StampCampaignView>(stamp));
}

}  // namespace orrelo

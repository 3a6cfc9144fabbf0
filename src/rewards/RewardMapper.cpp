#include "rewards/RewardMapper.h"

namespace orrelo {

Reward RewardMapper::map(const Plugin& plugin, const std::optional<Point>& point,
                         const RewardCount& count) const {
  Reward reward;
  if (plugin.pointSystem) reward.point = point;
  if (plugin.gifticon) reward.gifticonCount = count.gifticon;
  reward.ticketCount = count.ticket;
  if (const auto* const enabled = plugin.externalPointPlugin.enabled()) {
    reward.externalPointUrl = enabled->landingUrl;
  }
  return reward;
}

}  // namespace orrelo

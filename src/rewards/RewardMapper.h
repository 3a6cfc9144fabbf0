#pragma once

#include "config/Config.h"
#include "rewards/Reward.h"
#include "rewards/RewardCount.h"
#include "rewards/RewardCountDTO.h"

#include <optional>

namespace orrelo {

class RewardMapper {
 public:
  RewardCount map(const RewardCountDTO& dto) const { return {dto.point, dto.ticket, dto.gifticon}; }

  /// The rewards that the plugins switch on. `point` is the balance if there is one; the count of points is
  /// deliberately unused.
  Reward map(const Plugin& plugin, const std::optional<Point>& point, const RewardCount& count) const;
};

}  // namespace orrelo

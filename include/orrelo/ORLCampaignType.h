#pragma once

#include <optional>

namespace orrelo {

/// The types of campaign that a host can open by type. The raw values are part of the public contract.
enum class ORLCampaignType {
  attendance = 0,
  referral = 1,
  optInMarketing = 2,
  scratchLottery = 3,
  roulette = 4
};

/// The type with this raw value; nullopt if there is none.
constexpr std::optional<ORLCampaignType> campaignType(int rawValue) {
  if (rawValue < 0 || rawValue > 4) return std::nullopt;
  return static_cast<ORLCampaignType>(rawValue);
}

}  // namespace orrelo

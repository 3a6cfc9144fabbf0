#pragma once

#include <optional>

namespace orrelo {

/// The kinds of campaign that a host can ask for by kind. The raw values are part of the public contract.
enum class ORLCampaignType {
  attendance = 0,
  referral = 1,
  optInMarketing = 2,
  scratchLottery = 3,
  roulette = 4
};

/// Nothing for a raw value that no kind has.
constexpr std::optional<ORLCampaignType> campaignType(int rawValue) {
  if (rawValue < 0 || rawValue > 4) return std::nullopt;
  return static_cast<ORLCampaignType>(rawValue);
}

}  // namespace orrelo

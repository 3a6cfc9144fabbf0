#include "campaign/Campaign.h"

#include "modular/roulette/RouletteComponent.h"
#include "modular/scratch/ScratchLotteryComponent.h"

namespace orrelo {
namespace {

// The kinds of blocks by which a modular page is known.
constexpr auto roulette = RouletteComponent::key;
constexpr auto scratchLottery = ScratchLotteryComponent::key;

struct PageNames {
  std::string operator()(const AttendanceCampaign&) const { return "attendance"; }
  std::string operator()(const ReferralCampaign&) const { return "referral"; }
  std::string operator()(const OptInMarketingCampaign&) const { return "opt_in_marketing"; }
  std::string operator()(const StampCampaign&) const { return "stamp"; }
  std::string operator()(const CampaignResult&) const { return "result"; }
  std::string operator()(const ModularCampaign& campaign) const {
    if (campaign.holds(roulette)) return std::string(roulette);
    return campaign.holds(scratchLottery) ? std::string(scratchLottery) : "modular";
  }
  std::string operator()(const InduceUpdateCampaign&) const { return "unknown"; }
  std::string operator()(const DeprecatedCampaign& campaign) const {
    return "deprecated(" + campaign.type + ")";
  }
  std::string operator()(const UnknownCampaign&) const { return "unknown"; }
};

}  // namespace

Error makeError(CampaignTypeError) {
  return Error("CampaignTypeError", "mappingError");
}

ORLCampaignType publicType(const Campaign& campaign) {
  if (std::holds_alternative<AttendanceCampaign>(campaign.type)) return ORLCampaignType::attendance;
  if (std::holds_alternative<ReferralCampaign>(campaign.type)) return ORLCampaignType::referral;
  if (std::holds_alternative<OptInMarketingCampaign>(campaign.type)) return ORLCampaignType::optInMarketing;
  if (const auto* const modular = std::get_if<ModularCampaign>(&campaign.type)) {
    if (modular->holds(roulette)) return ORLCampaignType::roulette;
    if (modular->holds(scratchLottery)) return ORLCampaignType::scratchLottery;
  }
  throw makeError(CampaignTypeError::mappingError);
}

std::string pageName(const Campaign& campaign) {
  return std::visit(PageNames(), campaign.type);
}

}  // namespace orrelo

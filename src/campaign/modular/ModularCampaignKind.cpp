#include "campaign/modular/ModularCampaignKind.h"

#include "campaign/CampaignScreen.h"
#include "modular/ModularCampaignView.h"
#include "modular/roulette/RouletteComponent.h"
#include "modular/scratch/ScratchLotteryComponent.h"

#include <utility>

namespace orrelo {
namespace {

// The blocks that determine the type of a modular page.
constexpr auto roulette = RouletteComponent::key;
constexpr auto scratchLottery = ScratchLotteryComponent::key;

}  // namespace

PageDetailDTO ModularCampaignKind::decode(const JsonObject& page) {
  constexpr std::string_view key = "page_details_v2";
  // Checked without an exception, since a list contains many pages that are not modular.
  if (!page.find(key)) return PageDetailDTO::unknown();
  auto detail = PageDetailDTO::decodeAs<Detail>(page, key);
  return std::get<Detail>(detail.kind).components.empty() ? PageDetailDTO::unknown() : detail;
}

ModularCampaign ModularCampaignKind::map(Detail&& dto, Campaign& campaign) {
  const auto& toolbar = dto.config.layout.toolbar;
  campaign.title = toolbar ? std::optional(toolbar->text) : std::nullopt;
  return {std::move(dto.components), std::move(dto.config)};
}

std::string_view ModularCampaignKind::pageName(const ModularCampaign& modular) {
  if (modular.holds(roulette)) return roulette;
  return modular.holds(scratchLottery) ? scratchLottery : "modular";
}

std::optional<ORLCampaignType> ModularCampaignKind::publicType(const ModularCampaign& modular) {
  if (modular.holds(roulette)) return ORLCampaignType::roulette;
  if (modular.holds(scratchLottery)) return ORLCampaignType::scratchLottery;
  return std::nullopt;
}

void ModularCampaignKind::show(const ModularCampaign& modular, const BrandedCampaign&,
                               const std::shared_ptr<CampaignScreen>& screen) {
  const auto page = ModularCampaignView::create(modular);
  page->delegate = screen;
  screen->show(page);
  if (screen->isAttached()) page->showDialogs(*screen->viewController());
}

}  // namespace orrelo

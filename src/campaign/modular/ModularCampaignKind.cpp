#include "campaign/modular/ModularCampaignKind.h"

#include "base/PageOmissions.h"
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

PageDetailDTO unknown(const JsonObject& page, std::string_view reason) {
  explainOmission(page, "", [&] {
    return "cannot be shown, since " + std::string(reason) +
           ": the screen for unknown campaigns stands in its place, which offers an update if there is one.";
  });
  return PageDetailDTO::unknown();
}

}  // namespace

PageDetailDTO ModularCampaignKind::decode(const JsonObject& page) {
  constexpr std::string_view key = "page_details_v2";
  // Checked without an exception, since a list contains many pages that are not modular.
  if (!page.find(key)) return unknown(page, "it is of no type that this version knows, and has no blocks");
  auto detail = PageDetailDTO::decodeAs<Detail>(page, key);
  return std::get<Detail>(detail.kind).components.empty() ? unknown(page, "it has no block to show") : detail;
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

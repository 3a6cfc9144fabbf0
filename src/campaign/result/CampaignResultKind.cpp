#include "campaign/result/CampaignResultKind.h"

#include "campaign/CampaignScreen.h"
#include "campaign/CampaignState.h"
#include "campaign/result/CampaignResultView.h"
#include "viewkit/PopUpDialogViewController.h"

#include <algorithm>
#include <utility>

namespace orrelo {
namespace {

CampaignPopUpDialog popUpDialogOf(PopUpDialogDTO&& dto) {
  return {std::move(dto.title), std::move(dto.label), std::move(dto.imageUrl), std::move(dto.buttonText)};
}

bool wasShown(const CampaignViewModel& model, const std::string& id) {
  const auto states = model.fetchCampaignStateUseCase().fetch();
  const auto known = std::find_if(states.begin(), states.end(),
                                  [&](const CampaignState& state) { return state.campaignId == id; });
  return known != states.end() && known->popUpDialogIsShown;
}

void showOnce(const CampaignPopUpDialog& dialog, const std::string& id, CampaignScreen& screen) {
  if (wasShown(screen.model(), id)) return;
  const PopUpDialogViewController::Content content{dialog.title, dialog.label, dialog.imageUrl,
                                                   dialog.buttonText};
  const auto dialogScreen =
      std::make_shared<PopUpDialogViewController>("campaign_result_pop_up_dialog", content);
  // Saved when the dialog is presented, not when it is closed, since it may be closed in any way.
  if (screen.viewController()->present(dialogScreen, false)) {
    screen.model().saveCampaignStateUseCase().save(id, true);
  }
}

}  // namespace

// The name and the label are taken from the campaign, not from the page.
CampaignResult CampaignResultKind::map(Detail&& dto, Campaign& campaign) {
  CampaignResult result{campaign.name,       campaign.label,          std::move(dto.imageUrl),
                        std::move(dto.body), {std::move(dto.notice)}, std::nullopt};
  if (dto.popUpDialog) result.popUpDialog = popUpDialogOf(*std::move(dto.popUpDialog));
  return result;
}

void CampaignResultKind::show(const CampaignResult& result, const BrandedCampaign& element,
                              const std::shared_ptr<CampaignScreen>& screen) {
  screen->show(std::make_shared<CampaignResultView>(result));
  if (result.popUpDialog && screen->isAttached()) showOnce(*result.popUpDialog, element.campaign.id, *screen);
}

}  // namespace orrelo

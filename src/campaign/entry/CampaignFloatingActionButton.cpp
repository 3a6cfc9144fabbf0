#include "campaign/entry/CampaignFloatingActionButton.h"

#include "model/UserManager.h"
#include "ui/RunningKit.h"
#include "ui/followOnMain.h"

namespace orrelo {

CampaignFloatingActionButton::CampaignFloatingActionButton()
    : tooltipView(std::make_shared<TooltipView>(
          TooltipView::Look{.tailPosition = TooltipView::TailPosition::bottom,
                            .tooltipBackgroundColor = Color{0.0, 0.0, 0.0, 0.87},
                            .autoDismiss = true,
                            .horizontalBias = 0.9})) {
  entryName = "default_floating_action_button";
}

std::shared_ptr<CampaignFloatingActionButton> CampaignFloatingActionButton::create() {
  const std::shared_ptr<CampaignFloatingActionButton> view(new CampaignFloatingActionButton);
  if (view->start()) view->followProperty();
  return view;
}

void CampaignFloatingActionButton::followProperty() {
  const auto self = std::static_pointer_cast<CampaignFloatingActionButton>(shared_from_this());
  viewModel_ = CampaignFloatingActionButtonViewModel::create(
      RunningKit::current()->fetchFloatingActionButtonPropertyUseCase);
  followOnMain(viewModel_->viewProperty(), self, disposeBag_, &CampaignFloatingActionButton::show,
               [](CampaignFloatingActionButton&, const Error&) {});
  const auto userIds =
      userIdStream().asObservable().compactMap([](const std::optional<std::string>& id) { return id; });
  followOnMain(
      userIds, self, disposeBag_,
      [](CampaignFloatingActionButton& view, const std::string& id) { view.viewModel_->fetch(id); },
      [](CampaignFloatingActionButton&, const Error&) {});
}

void CampaignFloatingActionButton::show(const FloatingActionButtonProperty& property) {
  color.set(Color::fromHex(property.color));
  iconImageView->load(property.iconUrl);
  if (property.tooltipMessage.empty()) {
    tooltipView->hide();
  } else {
    tooltipView->show(property.tooltipMessage);
  }
}

}  // namespace orrelo

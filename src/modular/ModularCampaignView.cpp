#include "modular/ModularCampaignView.h"

#include <utility>

namespace orrelo {
namespace {

struct Handler {
  ModularCampaignViewDelegate& screen;

  void operator()(const Action::WithUrl& action) const { screen.participate(action.url); }
  void operator()(const Action::Routing& action) const { screen.route(action.page); }
  void operator()(const Action::UpdateNeeded&) const { screen.reload(); }
};

}  // namespace

ModularCampaignView::ModularCampaignView(ModularCampaign campaign) : modularCampaign_(std::move(campaign)) {}

std::shared_ptr<ModularCampaignView> ModularCampaignView::create(ModularCampaign campaign) {
  std::shared_ptr<ModularCampaignView> view(new ModularCampaignView(std::move(campaign)));
  for (const auto& component : view->modularCampaign_.components) {
    component->delegate = view;
    component->render(*view->stackView);
  }
  return view;
}

void ModularCampaignView::showDialogs(ORLUIViewController& viewController) {
  const auto self = std::static_pointer_cast<ModularCampaignView>(shared_from_this());
  for (const auto& dialog : modularCampaign_.config.layout.dialogComponents) {
    dialog->delegate = self;
    dialog->show(viewController);
  }
}

void ModularCampaignView::didReceive(const Action& action) {
  if (const auto screen = delegate.lock()) std::visit(Handler{*screen}, action.kind);
}

}  // namespace orrelo

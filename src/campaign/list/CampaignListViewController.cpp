#include "campaign/list/CampaignListViewController.h"

#include "base/Logger.h"
#include "events/UserEventTracker.h"
#include "model/UserManager.h"
#include "ui/followOnMain.h"
#include "ui/showScreen.h"

#include <algorithm>
#include <utility>

namespace orrelo {

CampaignListViewController::CampaignListViewController(std::shared_ptr<const CampaignListViewModel> viewModel,
                                                       std::shared_ptr<CampaignViewControllerFactory> factory)
    : viewModel_(std::move(viewModel)), campaignViewControllerFactory_(std::move(factory)) {}

std::shared_ptr<CampaignListViewController> CampaignListViewController::create(
    std::shared_ptr<const CampaignListViewModel> viewModel,
    std::shared_ptr<CampaignViewControllerFactory> factory) {
  return std::shared_ptr<CampaignListViewController>(
      new CampaignListViewController(std::move(viewModel), std::move(factory)));
}

void CampaignListViewController::viewDidLoad() {
  if (!viewModel_) return;
  const auto self = std::static_pointer_cast<CampaignListViewController>(shared_from_this());
  using ViewState = CampaignListViewModel::ViewState;
  followOnMain(
      viewModel_->transform({trigger_.asObservable().map([](reactive::Unit) { return currentUserId(); })}),
      self, disposeBag_,
      [](CampaignListViewController& list, const ViewState& viewState) { list.show(viewState); },
      [](CampaignListViewController& list, const Error& error) {
        list.show(CampaignListViewModel::Failed{error});
      });
}

void CampaignListViewController::viewWillAppear(bool animated) {
  ViewController::viewWillAppear(animated);
  refresh();
}

void CampaignListViewController::refresh() {
  trigger_.onNext({});
}

void CampaignListViewController::show(const CampaignListViewModel::ViewState& viewState) {
  std::visit([this](const auto& each) { show(each); }, viewState);
}

void CampaignListViewController::show(const CampaignListViewModel::Loading&) {
  if (const auto screen = delegate.lock()) screen->startActivityIndicator();
}

void CampaignListViewController::show(const CampaignListViewModel::Failed& failed) {
  const auto screen = delegate.lock();
  if (!screen) return;
  screen->stopActivityIndicator();
  screen->showListError(failed.error);
}

void CampaignListViewController::show(const CampaignListViewModel::Loaded& loaded) {
  campaigns_ = loaded.campaigns;
  awaitsLayout_ = true;
  // The message is replaced first, so that the cells that the front makes for the new state can be seen.
  if (const auto screen = delegate.lock()) {
    if (campaigns_.empty()) {
      screen->showListError(makeError(OrreloError::emptyCampaigns));
    } else {
      screen->hideListError();
    }
    screen->stopActivityIndicator();
  }
  state_.set({makeCells(std::max(pageSize, state().cells.size())), state().loadCount + 1});
}

std::vector<std::shared_ptr<CampaignViewCell>> CampaignListViewController::makeCells(
    std::size_t count) const {
  const auto& former = state().cells;
  auto unused = former.begin();
  std::vector<std::shared_ptr<CampaignViewCell>> cells;
  for (std::size_t row = 0; row < std::min(count, campaigns_.size()); ++row) {
    const auto& campaign = campaigns_[row];
    // Cells are kept in their order; one whose campaign has moved up the list is made anew.
    const auto found =
        std::find_if(unused, former.end(), [&](const auto& cell) { return cell->shows(campaign); });
    if (found == former.end()) {
      cells.push_back(std::make_shared<CampaignViewCell>(campaign));
    } else {
      cells.push_back(*found);
      unused = found + 1;
    }
    cells.back()->loadIcon();
  }
  return cells;
}

void CampaignListViewController::setInSight(const std::shared_ptr<CampaignViewCell>& cell, bool isInSight) {
  if (std::exchange(cell->isInSight, isInSight) == isInSight || !isInSight) return;
  if (!awaitsLayout_) reportShown(*cell);
  const auto& cells = state().cells;
  const bool isNearEnd = std::find(cells.end() - std::min<std::ptrdiff_t>(std::ssize(cells), pageSize / 2),
                                   cells.end(), cell) != cells.end();
  if (isNearEnd && cells.size() < campaigns_.size()) {
    state_.change([this](State& state) { state.cells = makeCells(state.cells.size() + pageSize); });
  }
}

void CampaignListViewController::didLayOut() {
  if (!std::exchange(awaitsLayout_, false)) return;
  const auto cells = state().cells;
  for (const auto& cell : cells) {
    if (cell->isInSight) reportShown(*cell);
  }
}

void CampaignListViewController::reportShown(const CampaignViewCell& cell) const {
  // A list that is covered by another screen loads again when it reappears, and then reports its cells.
  if (!isVisible()) return;
  UserEventTracker::track(UserEventName::campaignListItemShow,
                          {{UserEventValueKey::campaignId, cell.campaignId}});
}

void CampaignListViewController::didSelect(const CampaignViewCell& cell) {
  UserEventTracker::track(UserEventName::campaignListItemClick,
                          {{UserEventValueKey::campaignId, cell.campaignId}});
  if (!campaignViewControllerFactory_) {
    return log(LogLevel::DEBUG, "CampaignViewControllerFactory is not injected");
  }
  showScreen(campaignViewControllerFactory_->make(cell.campaignId), shared_from_this());
}

}  // namespace orrelo

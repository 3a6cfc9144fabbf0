#pragma once

#include "campaign/list/CampaignListViewControllerDelegate.h"
#include "campaign/list/CampaignListViewModel.h"
#include "campaign/list/CampaignViewCell.h"
#include "ui/CampaignViewControllerFactory.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace orrelo {

/// The campaigns of the user, as a part of another screen. It loads whenever it appears. The cells are made
/// as the user scrolls to them, so that a long list costs no more than what was seen of it.
class ORRELO_EXPORT CampaignListViewController final : public ViewController {
 public:
  /// The number of cells that are made at a time.
  static constexpr std::size_t pageSize = 20;

  struct State {
    /// The cells of the first campaigns. A cell whose campaign stays the same survives a load.
    std::vector<std::shared_ptr<CampaignViewCell>> cells;
    /// The number of lists that have arrived. The front calls `didLayOut` after each change.
    int loadCount = 0;

    friend bool operator==(const State&, const State&) = default;
  };

  /// A list without view model never loads, one without factory opens nothing.
  static std::shared_ptr<CampaignListViewController> create(
      std::shared_ptr<const CampaignListViewModel> viewModel,
      std::shared_ptr<CampaignViewControllerFactory> factory);

  static constexpr std::string_view kindName = "CampaignListViewController";
  std::string_view kind() const override { return kindName; }

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  const std::vector<Campaign>& campaigns() const { return campaigns_; }

  /// Loads the list for the current user.
  void refresh();
  /// Called by the front when a part of the cell has come into the user's sight or has left it. A cell that
  /// comes into sight is reported as shown.
  void setInSight(const std::shared_ptr<CampaignViewCell>& cell, bool isInSight);
  /// Called by the front when it has laid out the cells of a new list. Reports all cells in sight as shown,
  /// even if the list is equal to the former one.
  void didLayOut();
  /// Opens the campaign of the cell.
  void didSelect(const CampaignViewCell& cell);

  std::weak_ptr<CampaignListViewControllerDelegate> delegate;

 protected:
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;

 private:
  CampaignListViewController(std::shared_ptr<const CampaignListViewModel> viewModel,
                             std::shared_ptr<CampaignViewControllerFactory> factory);

  void show(const CampaignListViewModel::ViewState& viewState);
  void show(const CampaignListViewModel::Loaded& loaded);
  void show(const CampaignListViewModel::Failed& failed);
  void show(const CampaignListViewModel::Loading& loading);
  /// The first `count` cells, or fewer if there are fewer campaigns.
  std::vector<std::shared_ptr<CampaignViewCell>> makeCells(std::size_t count) const;
  void reportShown(const CampaignViewCell& cell) const;

  const std::shared_ptr<const CampaignListViewModel> viewModel_;
  const std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory_;
  std::vector<Campaign> campaigns_;
  /// True from the arrival of a list until the front has laid it out.
  bool awaitsLayout_ = false;
  const reactive::PublishSubject<reactive::Unit> trigger_;
  Followed<State> state_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

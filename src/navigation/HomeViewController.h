#pragma once

#include "campaign/list/CampaignListViewController.h"
#include "rewards/RewardViewController.h"
#include "viewkit/ErrorView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

/// The kit's front door: the rewards of the user above the list of campaigns. Both are screens of their own,
/// which load independently whenever home appears, so that a failure of one leaves the other.
class ORRELO_EXPORT HomeViewController final : public ORLUIViewController,
                                               public CampaignListViewControllerDelegate,
                                               public RewardViewControllerDelegate {
 public:
  struct State {
    /// The activity indicator. Either part starts and stops it; the last call counts.
    bool isLoading = false;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr auto backgroundAsset = "orl_bg_gray_gradient";

  /// The screen takes the running kit when it loads. Without one it shows an error, and its parts are inert.
  static std::shared_ptr<HomeViewController> create();

  static constexpr std::string_view kindName = "HomeViewController";
  std::string_view kind() const override { return kindName; }

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  /// Both are null until the screen has loaded.
  const std::shared_ptr<RewardViewController>& rewardViewController() const { return rewardViewController_; }
  const std::shared_ptr<CampaignListViewController>& campaignListViewController() const {
    return campaignListViewController_;
  }
  /// Shown in place of the campaigns.
  const std::shared_ptr<ErrorView> errorView;

  /// Loads both parts again.
  void refresh();

  void startActivityIndicator() override { setLoading(true); }
  void stopActivityIndicator() override { setLoading(false); }
  void showToast(const std::string& message, const Color& color) override;
  void showListError(const Error& error) override;
  void hideListError() override;

 protected:
  void viewDidLoad() override;

 private:
  HomeViewController();

  void setLoading(bool isLoading);

  std::shared_ptr<RewardViewController> rewardViewController_;
  std::shared_ptr<CampaignListViewController> campaignListViewController_;
  Followed<State> state_;
};

}  // namespace orrelo

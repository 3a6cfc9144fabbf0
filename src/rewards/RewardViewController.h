#pragma once

#include "base/Color.h"
#include "page/Page.h"
#include "reactive/Disposable.h"
#include "reactive/Subjects.h"
#include "rewards/RewardViewModel.h"
#include "rewards/point/PointView.h"
#include "ui/PageRouter.h"
#include "ui/ViewController.h"
#include "viewkit/IconRectangleButton.h"

#include <orrelo/Export.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// The screen that contains a reward tab. Main thread.
class ORRELO_EXPORT RewardViewControllerDelegate {
 public:
  virtual ~RewardViewControllerDelegate() = default;

  virtual void startActivityIndicator() = 0;
  virtual void stopActivityIndicator() = 0;
  virtual void showToast(const std::string& message, const Color& color) = 0;
};

/// The reward tab, a strip within another screen: the balance, and buttons for the other rewards. It loads
/// each time that it appears.
class ORRELO_EXPORT RewardViewController final : public ViewController {
 public:
  struct State {
    /// The number of buttons that are not hidden.
    int visibleButtonCount = 2;

    /// True if the row of buttons is not shown. It is deliberately hidden if it has only one.
    bool isHorizontalRewardStackHidden() const { return visibleButtonCount == 1; }

    friend bool operator==(const State&, const State&) = default;
  };

  /// Each parameter may be null: without a view model nothing is loaded, without a router nothing is opened.
  static std::shared_ptr<RewardViewController> create(std::shared_ptr<RewardViewModel> viewModel,
                                                      std::shared_ptr<PageRouter> pageRouter);

  static constexpr std::string_view kindName = "RewardViewController";
  std::string_view kind() const override { return kindName; }

  std::weak_ptr<RewardViewControllerDelegate> delegate;

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  /// Hidden until a balance is known: a view without one would look like an empty balance.
  const std::shared_ptr<PointView> pointView = std::make_shared<PointView>();
  /// Shown from the start, without a badge; so is `ticketButton`.
  const std::shared_ptr<IconRectangleButton> gifticonButton =
      std::make_shared<IconRectangleButton>("orl_ic_gifticon", "기프티콘");
  /// Hidden until the exchange is known to be enabled.
  const std::shared_ptr<IconRectangleButton> externalPointButton =
      std::make_shared<IconRectangleButton>("orl_ic_naverpay", "포인트 전환");
  const std::shared_ptr<IconRectangleButton> ticketButton =
      std::make_shared<IconRectangleButton>("orl_ic_ticket", "응모권");

  /// Loads the rewards of the current user.
  void refresh();
  void onClickPointView();
  void onClickGifticonButton();
  void onClickExternalPointButton();
  /// Deliberately does nothing: the button only shows the number of tickets.
  void onClickTicketButton() {}

 protected:
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;

 private:
  RewardViewController(std::shared_ptr<RewardViewModel> viewModel, std::shared_ptr<PageRouter> pageRouter);

  void show(const RewardViewModel::Output& output);
  void render(const Reward& reward, const BrandTheme& brandTheme);
  void fail();
  void route(Page::Fixed page);

  const std::shared_ptr<RewardViewModel> viewModel_;
  const std::shared_ptr<PageRouter> pageRouter_;
  const reactive::PublishSubject<reactive::Unit> trigger_;
  Followed<State> state_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

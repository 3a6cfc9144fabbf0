#pragma once

#include "base/TimeZone.h"
#include "rewards/point/PointRedemptionHistory.h"
#include "rewards/point/PointRedemptionHistoryViewCell.h"
#include "rewards/point/PointRedemptionHistoryViewModel.h"
#include "rewards/point/PointView.h"
#include "viewkit/ErrorView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// The screen with the balance above the history of its movements. It loads a page each time that it appears,
/// when the user asks for one, and when the last row comes into sight. Nothing loads while nobody is signed
/// in.
class ORRELO_EXPORT PointRedemptionHistoryViewController final : public ORLUIViewController {
 public:
  struct State {
    bool isLoading = false;
    /// Only grows: the rows of a page are appended.
    std::size_t rowCount = 0;
    /// The unit of all rows.
    std::string unit;

    friend bool operator==(const State&, const State&) = default;
  };

  static std::shared_ptr<PointRedemptionHistoryViewController> create(
      std::shared_ptr<PointRedemptionHistoryViewModel> viewModel);

  static constexpr std::string_view kindName = "PointRedemptionHistoryViewController";
  std::string_view kind() const override { return kindName; }

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  const std::shared_ptr<PointView> pointView = std::make_shared<PointView>();
  /// Lies over the rows, which stay.
  const std::shared_ptr<ErrorView> errorView;

  /// The row's texts; `row` is less than `rowCount`.
  PointRedemptionHistoryViewCell cell(std::size_t row) const;

  /// Called by the front when the user pulls the list, or asks for more in another way. It deliberately loads
  /// the next page and does not begin anew.
  void refresh();
  /// Called by the front with the last row in sight, whenever it changes.
  void willDisplay(std::size_t lastRow);

 protected:
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;

 private:
  explicit PointRedemptionHistoryViewController(std::shared_ptr<PointRedemptionHistoryViewModel> viewModel);

  void render(const PointRedemptionHistoryViewState& viewState);
  void append(const PointRedemptionHistoryLoaded& loaded);
  void showError(const std::string& text);
  /// Loads the next page if the last row is in sight and no load is shown as running.
  void loadAtTheEnd();

  const std::shared_ptr<PointRedemptionHistoryViewModel> viewModel_;
  /// The rows never move, so that appending a page costs that page alone.
  std::deque<PointRedemptionHistory> pointRedemptionHistories_;
  Followed<State> state_;
  std::optional<std::size_t> lastRowInSight_;
  const TimeZone timezone_ = TimeZone::utc();
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

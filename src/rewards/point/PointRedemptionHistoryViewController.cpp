#include "rewards/point/PointRedemptionHistoryViewController.h"

#include "model/UserManager.h"
#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

PointRedemptionHistoryViewController::PointRedemptionHistoryViewController(
    std::shared_ptr<PointRedemptionHistoryViewModel> viewModel)
    : errorView(std::make_shared<ErrorView>("")), viewModel_(std::move(viewModel)) {
  errorView->setHidden(true);
}

std::shared_ptr<PointRedemptionHistoryViewController> PointRedemptionHistoryViewController::create(
    std::shared_ptr<PointRedemptionHistoryViewModel> viewModel) {
  return std::shared_ptr<PointRedemptionHistoryViewController>(
      new PointRedemptionHistoryViewController(std::move(viewModel)));
}

PointRedemptionHistoryViewCell PointRedemptionHistoryViewController::cell(std::size_t row) const {
  return PointRedemptionHistoryViewCell::of(pointRedemptionHistories_.at(row), state().unit, timezone_);
}

void PointRedemptionHistoryViewController::viewDidLoad() {
  ORLUIViewController::viewDidLoad();
  setTitle("내 히스토리");
  const std::weak_ptr<ViewController> weak = weak_from_this();
  viewModel_->viewStateStream()
      .subscribe([weak](const PointRedemptionHistoryViewState& viewState) {
        const auto self = std::static_pointer_cast<PointRedemptionHistoryViewController>(weak.lock());
        if (self) self->render(viewState);
      })
      .disposedBy(disposeBag_);
}

void PointRedemptionHistoryViewController::viewWillAppear(bool animated) {
  ORLUIViewController::viewWillAppear(animated);
  refresh();
}

void PointRedemptionHistoryViewController::refresh() {
  if (const auto& userId = currentUserId()) viewModel_->load(*userId);
}

void PointRedemptionHistoryViewController::willDisplay(std::size_t lastRow) {
  lastRowInSight_ = lastRow;
  loadAtTheEnd();
}

void PointRedemptionHistoryViewController::render(const PointRedemptionHistoryViewState& viewState) {
  errorView->setHidden(true);
  if (const auto* const loaded = std::get_if<PointRedemptionHistoryLoaded>(&viewState))
    return append(*loaded);
  const bool isLoading = std::holds_alternative<PointRedemptionHistoryLoading>(viewState);
  state_.change([isLoading](State& state) { state.isLoading = isLoading; });
  if (!isLoading) showError("잠시 후 다시 시도해주세요.");
}

void PointRedemptionHistoryViewController::append(const PointRedemptionHistoryLoaded& loaded) {
  const auto& rows = loaded.pointRedemptionHistory;
  pointRedemptionHistories_.insert(pointRedemptionHistories_.end(), rows.begin(), rows.end());
  pointView->update(loaded.point);
  state_.set({.isLoading = false, .rowCount = pointRedemptionHistories_.size(), .unit = loaded.point.unit});
  if (pointRedemptionHistories_.empty()) showError("적립 내역이 없습니다.");
  // The view model counts this page only after the call that has brought it.
  const std::weak_ptr<ViewController> weak = weak_from_this();
  reactive::MainScheduler::instance()->schedule([weak] {
    const auto self = std::static_pointer_cast<PointRedemptionHistoryViewController>(weak.lock());
    if (self) self->loadAtTheEnd();
  });
}

void PointRedemptionHistoryViewController::showError(const std::string& text) {
  errorView->state.set({.text = text, .isHidden = false});
}

void PointRedemptionHistoryViewController::loadAtTheEnd() {
  const auto& userId = currentUserId();
  if (!lastRowInSight_ || state().isLoading || !userId) return;
  viewModel_->loadAfter(*lastRowInSight_, state().rowCount, *userId);
}

}  // namespace orrelo

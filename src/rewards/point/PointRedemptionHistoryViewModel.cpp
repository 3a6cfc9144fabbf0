#include "rewards/point/PointRedemptionHistoryViewModel.h"

#include "reactive/Combining.h"
#include "reactive/Observable.h"
#include "ui/followOnMain.h"

#include <utility>

namespace orrelo {

std::shared_ptr<PointRedemptionHistoryViewModel> PointRedemptionHistoryViewModel::create(
    FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase,
    std::shared_ptr<FetchPointUseCase> fetchPointUseCase) {
  return std::shared_ptr<PointRedemptionHistoryViewModel>(new PointRedemptionHistoryViewModel(
      std::move(fetchPointRedemptionHistoriesUseCase), std::move(fetchPointUseCase)));
}

PointRedemptionHistoryViewModel::PointRedemptionHistoryViewModel(
    FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase,
    std::shared_ptr<FetchPointUseCase> fetchPointUseCase)
    : fetchPointRedemptionHistoriesUseCase_(std::move(fetchPointRedemptionHistoriesUseCase)),
      fetchPointUseCase_(std::move(fetchPointUseCase)) {}

void PointRedemptionHistoryViewModel::load(const std::string& userId) {
  viewStateStream_.onNext(PointRedemptionHistoryLoading{});
  const auto rows = fetchPointRedemptionHistoriesUseCase_.fetch(userId, currentPage_);
  const auto point = fetchPointUseCase_->fetch(userId).ifEmpty(Point::defaultBalance()).asObservable();
  followOnMain(reactive::zip(rows, point), shared_from_this(), disposeBag_,
               &PointRedemptionHistoryViewModel::show, &PointRedemptionHistoryViewModel::fail);
}

void PointRedemptionHistoryViewModel::loadAfter(std::size_t row, std::size_t rowCount,
                                                const std::string& userId) {
  if (row + 1 != rowCount || !usedIndexPath_.insert(row).second) return;
  load(userId);
}

void PointRedemptionHistoryViewModel::show(
    const std::tuple<std::vector<PointRedemptionHistory>, Point>& page) {
  viewStateStream_.onNext(PointRedemptionHistoryLoaded{std::get<0>(page), std::get<1>(page)});
  ++currentPage_;
}

void PointRedemptionHistoryViewModel::fail(const Error&) {
  viewStateStream_.onNext(PointRedemptionHistoryError{});
}

}  // namespace orrelo

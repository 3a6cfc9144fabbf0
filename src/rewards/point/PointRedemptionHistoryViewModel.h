#pragma once

#include "reactive/Disposable.h"
#include "reactive/Subjects.h"
#include "rewards/point/FetchPointRedemptionHistoriesUseCase.h"
#include "rewards/point/FetchPointUseCase.h"
#include "rewards/point/Point.h"
#include "rewards/point/PointRedemptionHistory.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

namespace orrelo {

struct PointRedemptionHistoryLoaded {
  /// One page, in the order of the service.
  std::vector<PointRedemptionHistory> pointRedemptionHistory;
  Point point;
  friend bool operator==(const PointRedemptionHistoryLoaded&, const PointRedemptionHistoryLoaded&) = default;
};
struct PointRedemptionHistoryLoading {
  friend bool operator==(const PointRedemptionHistoryLoading&,
                         const PointRedemptionHistoryLoading&) = default;
};
struct PointRedemptionHistoryError {
  friend bool operator==(const PointRedemptionHistoryError&, const PointRedemptionHistoryError&) = default;
};

using PointRedemptionHistoryViewState =
    std::variant<PointRedemptionHistoryLoaded, PointRedemptionHistoryLoading, PointRedemptionHistoryError>;

/// The paging of one history screen. Main thread.
class PointRedemptionHistoryViewModel final
    : public std::enable_shared_from_this<PointRedemptionHistoryViewModel> {
 public:
  static std::shared_ptr<PointRedemptionHistoryViewModel> create(
      FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase,
      std::shared_ptr<FetchPointUseCase> fetchPointUseCase);

  /// `loading` for each load, then `loaded` with one page or `error`, on the main thread. It never ends. The
  /// page is counted after the call of the observers: a load within it would ask for the same page again.
  reactive::Observable<PointRedemptionHistoryViewState> viewStateStream() const {
    return viewStateStream_.asObservable();
  }

  /// Fetches the next page and the balance. There is deliberately no way back to the first page; after an
  /// error the same page is next. Loads that run at the same time deliberately fetch the same page, whose
  /// rows come twice.
  void load(const std::string& userId);

  /// Loads if `row` is the last one of `rowCount` and has not caused a load before. There is no sign of the
  /// end of the history: a page without rows leaves the last row as it is, and its load is not repeated.
  void loadAfter(std::size_t row, std::size_t rowCount, const std::string& userId);

 private:
  PointRedemptionHistoryViewModel(FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase,
                                  std::shared_ptr<FetchPointUseCase> fetchPointUseCase);

  void show(const std::tuple<std::vector<PointRedemptionHistory>, Point>& page);
  void fail(const Error& error);

  const FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase_;
  const std::shared_ptr<FetchPointUseCase> fetchPointUseCase_;
  const reactive::PublishSubject<PointRedemptionHistoryViewState> viewStateStream_;
  std::int64_t currentPage_ = 0;
  /// The rows that have caused a load.
  std::set<std::size_t> usedIndexPath_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

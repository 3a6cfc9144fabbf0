#pragma once

#include "reactive/ObservableType.h"
#include "rewards/point/PointRepository.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

class FetchPointRedemptionHistoriesUseCase {
 public:
  explicit FetchPointRedemptionHistoriesUseCase(std::shared_ptr<PointRepository> repository)
      : repository_(std::move(repository)) {}

  /// See PointRepository::fetchHistories. The configuration is not asked: the history is fetched even if the
  /// point system is switched off.
  reactive::Observable<std::vector<PointRedemptionHistory>> fetch(const std::string& userId,
                                                                  std::int64_t page) const {
    return repository_->fetchHistories(userId, page);
  }

 private:
  std::shared_ptr<PointRepository> repository_;
};

}  // namespace orrelo

#pragma once

#include "reactive/ObservableType.h"
#include "rewards/point/Point.h"
#include "rewards/point/PointRedemptionHistory.h"
#include "rewards/point/PointRemoteDataSource.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

/// Only the unit is cached: each request goes to the service. The streams are cold and emit one element or an
/// error on the data source's scheduler. Any thread.
class PointRepository {
 public:
  virtual ~PointRepository() = default;

  virtual reactive::Observable<Point> fetchPoint(const std::string& userId) = 0;
  /// The rows of a page in the order of the service; the first page is 0.
  virtual reactive::Observable<std::vector<PointRedemptionHistory>> fetchHistories(const std::string& userId,
                                                                                   std::int64_t page) = 0;
  /// The unit of the last balance that was fetched; nullopt before the first one.
  virtual std::optional<std::string> cachedPointUnit() const = 0;
};

class PointRepositoryImpl final : public PointRepository,
                                  public std::enable_shared_from_this<PointRepositoryImpl> {
 public:
  static std::shared_ptr<PointRepositoryImpl> create(PointRemoteDataSource remoteDataSource);

  reactive::Observable<Point> fetchPoint(const std::string& userId) override;
  reactive::Observable<std::vector<PointRedemptionHistory>> fetchHistories(const std::string& userId,
                                                                           std::int64_t page) override {
    return remoteDataSource_.fetchHistories(userId, page);
  }
  std::optional<std::string> cachedPointUnit() const override;

 private:
  explicit PointRepositoryImpl(PointRemoteDataSource remoteDataSource)
      : remoteDataSource_(std::move(remoteDataSource)) {}

  void remember(const std::string& unit);

  const PointRemoteDataSource remoteDataSource_;
  mutable std::mutex mutex_;
  std::optional<std::string> cachedPointUnit_;
};

}  // namespace orrelo

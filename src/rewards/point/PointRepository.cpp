#include "rewards/point/PointRepository.h"

#include "reactive/Observable.h"

namespace orrelo {

std::shared_ptr<PointRepositoryImpl> PointRepositoryImpl::create(PointRemoteDataSource remoteDataSource) {
  return std::shared_ptr<PointRepositoryImpl>(new PointRepositoryImpl(std::move(remoteDataSource)));
}

reactive::Observable<Point> PointRepositoryImpl::fetchPoint(const std::string& userId) {
  return remoteDataSource_.fetchPoint(userId).doOn({.onNext = [weak = weak_from_this()](const Point& point) {
    if (const auto self = weak.lock()) self->remember(point.unit);
  }});
}

std::optional<std::string> PointRepositoryImpl::cachedPointUnit() const {
  const std::lock_guard lock(mutex_);
  return cachedPointUnit_;
}

void PointRepositoryImpl::remember(const std::string& unit) {
  const std::lock_guard lock(mutex_);
  cachedPointUnit_ = unit;
}

}  // namespace orrelo

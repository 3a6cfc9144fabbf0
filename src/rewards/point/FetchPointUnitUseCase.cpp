#include "rewards/point/FetchPointUnitUseCase.h"

#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<std::string> FetchPointUnitUseCaseImpl::fetch(const std::string& userId) {
  return fetchConfigUseCase_->fetch().flatMap([repository = repository_, userId](const Config& config) {
    if (!config.plugin.pointSystem) return reactive::just(std::string());
    if (const auto unit = repository->cachedPointUnit()) return reactive::just(*unit);
    return repository->fetchPoint(userId).map([](const Point& point) { return point.unit; });
  });
}

}  // namespace orrelo

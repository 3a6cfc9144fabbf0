#include "rewards/point/FetchPointUseCase.h"

#include "reactive/Observable.h"

namespace orrelo {

reactive::Maybe<Point> FetchPointUseCaseImpl::fetch(const std::string& userId) {
  return fetchConfigUseCase_->fetch().asMaybe().flatMap(
      [repository = repository_, userId](const Config& config) {
        return config.plugin.pointSystem ? repository->fetchPoint(userId).asMaybe()
                                         : reactive::Maybe<Point>::empty();
      });
}

}  // namespace orrelo

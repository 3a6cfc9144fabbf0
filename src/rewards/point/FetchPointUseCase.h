#pragma once

#include "config/FetchConfigUseCase.h"
#include "reactive/Traits.h"
#include "rewards/point/Point.h"
#include "rewards/point/PointRepository.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class FetchPointUseCase {
 public:
  virtual ~FetchPointUseCase() = default;

  /// Fetches the user's balance. Completes without an element, and asks nothing of the service, if the
  /// configuration has the point system switched off; callers then use `Point::defaultBalance`. A cold
  /// stream. Any thread.
  virtual reactive::Maybe<Point> fetch(const std::string& userId) = 0;
};

class FetchPointUseCaseImpl final : public FetchPointUseCase {
 public:
  FetchPointUseCaseImpl(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                        std::shared_ptr<PointRepository> repository)
      : fetchConfigUseCase_(std::move(fetchConfigUseCase)), repository_(std::move(repository)) {}

  reactive::Maybe<Point> fetch(const std::string& userId) override;

 private:
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  const std::shared_ptr<PointRepository> repository_;
};

}  // namespace orrelo

#pragma once

#include "config/FetchConfigUseCase.h"
#include "reactive/ObservableType.h"
#include "rewards/point/PointRepository.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class FetchPointUnitUseCase {
 public:
  virtual ~FetchPointUnitUseCase() = default;

  /// Emits the unit of the point system: empty if the configuration has it switched off, else that of the
  /// last balance, which is fetched if there has been none. A cold stream of one element or an error. Any
  /// thread.
  virtual reactive::Observable<std::string> fetch(const std::string& userId) = 0;
};

class FetchPointUnitUseCaseImpl final : public FetchPointUnitUseCase {
 public:
  FetchPointUnitUseCaseImpl(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                            std::shared_ptr<PointRepository> repository)
      : fetchConfigUseCase_(std::move(fetchConfigUseCase)), repository_(std::move(repository)) {}

  reactive::Observable<std::string> fetch(const std::string& userId) override;

 private:
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  const std::shared_ptr<PointRepository> repository_;
};

}  // namespace orrelo

#pragma once

#include "campaign/entry/FetchFloatingActionButtonPropertyUseCase.h"
#include "reactive/Subjects.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// Fetches the look of one floating button. Main thread.
class CampaignFloatingActionButtonViewModel final
    : public std::enable_shared_from_this<CampaignFloatingActionButtonViewModel> {
 public:
  static std::shared_ptr<CampaignFloatingActionButtonViewModel> create(
      std::shared_ptr<const FetchFloatingActionButtonPropertyUseCase> useCase) {
    return std::shared_ptr<CampaignFloatingActionButtonViewModel>(
        new CampaignFloatingActionButtonViewModel(std::move(useCase)));
  }

  /// The result arrives in `viewProperty`.
  void fetch(const std::string& userId);
  /// The fetched looks. The first failure deliberately ends the stream; later fetches have no effect.
  reactive::Observable<FloatingActionButtonProperty> viewProperty() const {
    return viewProperty_.asObservable();
  }

 private:
  explicit CampaignFloatingActionButtonViewModel(
      std::shared_ptr<const FetchFloatingActionButtonPropertyUseCase> useCase)
      : fetchFloatingActionButtonPropertyUseCase_(std::move(useCase)) {}

  const std::shared_ptr<const FetchFloatingActionButtonPropertyUseCase>
      fetchFloatingActionButtonPropertyUseCase_;
  const reactive::PublishSubject<FloatingActionButtonProperty> viewProperty_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

#pragma once

#include "config/FetchConfigUseCase.h"
#include "reactive/Disposable.h"
#include "ui/View.h"

#include <memory>
#include <utility>
#include <variant>

namespace orrelo {

/// Decides whether the entry to the exchange is shown. Main thread.
class ExternalPointEntryViewModel : public std::enable_shared_from_this<ExternalPointEntryViewModel> {
 public:
  struct IsVisible {
    ExternalPointPlugin externalPointPlugin;
    BrandTheme brandTheme;
    friend bool operator==(const IsVisible&, const IsVisible&) = default;
  };
  struct IsNotVisible {
    friend bool operator==(const IsNotVisible&, const IsNotVisible&) = default;
  };
  /// The configuration has failed.
  struct Error {
    friend bool operator==(const Error&, const Error&) = default;
  };
  using ViewState = std::variant<IsVisible, IsNotVisible, Error>;

  explicit ExternalPointEntryViewModel(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase)
      : fetchConfigUseCase_(std::move(fetchConfigUseCase)) {}

  /// `IsNotVisible` until the configuration has arrived.
  Followed<ViewState> viewState{IsNotVisible()};

  void load();

 private:
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

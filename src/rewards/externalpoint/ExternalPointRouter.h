#pragma once

#include "config/FetchConfigUseCase.h"
#include "reactive/Disposable.h"
#include "ui/Router.h"

#include <memory>
#include <utility>

namespace orrelo {

/// Presents the exchange if the configuration enables it, and otherwise fails with an
/// ExternalPointPluginError. A route ends without a callback if the router is destroyed meanwhile.
class ExternalPointRouter final : public Router, public std::enable_shared_from_this<ExternalPointRouter> {
 public:
  explicit ExternalPointRouter(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase)
      : fetchConfigUseCase_(std::move(fetchConfigUseCase)) {}

  /// `from` is held weakly; the route fails with a ReferenceError if it is null or destroyed meanwhile.
  void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
             std::function<void(const Error&)> onFailure) override;

 private:
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

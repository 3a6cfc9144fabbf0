#include "rewards/externalpoint/ExternalPointRouter.h"

#include "rewards/externalpoint/ExternalPointExchangeViewController.h"
#include "rewards/externalpoint/ExternalPointPluginError.h"
#include "ui/followOnMain.h"

namespace orrelo {

void ExternalPointRouter::route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                                std::function<void(const Error&)> onFailure) {
  const auto plugins = fetchConfigUseCase_->fetch().map(
      [](const Config& config) { return config.plugin.externalPointPlugin; });
  followOnMain(
      plugins, shared_from_this(), disposeBag_,
      [weak = std::weak_ptr(from), onSuccess = std::move(onSuccess), onFailure](
          ExternalPointRouter&, const ExternalPointPlugin& plugin) {
        const auto* const enabled = plugin.enabled();
        if (enabled == nullptr) return onFailure(makeError(ExternalPointPluginError::isNotEnabled));
        const auto presenting = weak.lock();
        if (!presenting) return onFailure(makeError(ReferenceError::deallocated));
        presenting->present(std::make_shared<ExternalPointExchangeViewController>(enabled->landingUrl), true);
        onSuccess();
      },
      [onFailure](ExternalPointRouter&, const Error& error) { onFailure(error); });
}

}  // namespace orrelo

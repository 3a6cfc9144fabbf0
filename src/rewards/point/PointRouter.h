#pragma once

#include "rewards/point/PointRedemptionHistoryViewControllerFactory.h"
#include "ui/Router.h"

#include <memory>
#include <utility>

namespace orrelo {

/// Presents the screen of the history. It deliberately calls neither callback.
class PointRouter final : public Router {
 public:
  explicit PointRouter(std::shared_ptr<PointRedemptionHistoryViewControllerFactory> viewControllerFactory)
      : viewControllerFactory_(std::move(viewControllerFactory)) {}

  void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
             std::function<void(const Error&)> onFailure) override;

 private:
  const std::shared_ptr<PointRedemptionHistoryViewControllerFactory> viewControllerFactory_;
};

}  // namespace orrelo

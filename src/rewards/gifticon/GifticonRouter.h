#pragma once

#include "rewards/gifticon/GifticonViewControllerFactory.h"
#include "ui/Router.h"

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

/// Presents the gifticon screen.
class GifticonRouter final : public Router {
 public:
  explicit GifticonRouter(std::shared_ptr<GifticonViewControllerFactory> viewControllerFactory)
      : viewControllerFactory_(std::move(viewControllerFactory)) {}

  /// Always calls `onSuccess`, even if `from` is null or refuses to present.
  void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
             std::function<void(const Error&)> onFailure) override;

 private:
  std::shared_ptr<GifticonViewControllerFactory> viewControllerFactory_;
};

}  // namespace orrelo

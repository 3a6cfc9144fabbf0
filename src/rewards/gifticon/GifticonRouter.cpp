#include "rewards/gifticon/GifticonRouter.h"

namespace orrelo {

void GifticonRouter::route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                           std::function<void(const Error&)>) {
  if (from) from->present(viewControllerFactory_->make(), true);
  if (onSuccess) onSuccess();
}

}  // namespace orrelo

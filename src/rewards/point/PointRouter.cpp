#include "rewards/point/PointRouter.h"

namespace orrelo {

void PointRouter::route(const std::shared_ptr<ViewController>& from, std::function<void()>,
                        std::function<void(const Error&)>) {
  if (from) from->present(viewControllerFactory_->make(), true);
}

}  // namespace orrelo

#pragma once

#include "ui/PageRouter.h"

#include <memory>

namespace orrelo {

/// Asks the running kit at each route, and says in the log where there is none.
class PageRouterImpl final : public PageRouter {
 public:
  void route(const std::shared_ptr<ViewController>& from, const Page& page) override;
};

}  // namespace orrelo

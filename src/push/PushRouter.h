#pragma once

#include "model/UserManager.h"
#include "page/Page.h"
#include "ui/PageRouter.h"

#include <memory>
#include <utility>

namespace orrelo {

/// Opens the page of a notification.
class PushRouter final {
 public:
  PushRouter(std::shared_ptr<PageRouter> pageRouter, UserManager userManager)
      : pageRouter_(std::move(pageRouter)), userManager_(userManager) {}

  /// Makes the last user the current one and navigates from the topmost screen of the key window. Does
  /// nothing if there is no such window. Main thread.
  void route(const Page& page) const;

 private:
  std::shared_ptr<PageRouter> pageRouter_;
  UserManager userManager_;
};

}  // namespace orrelo

#include "push/PushRouter.h"

#include "base/explain.h"
#include "ui/KeyWindow.h"

namespace orrelo {

void PushRouter::route(const Page& page) const {
  const auto root = keyWindowRootViewController();
  if (!root) {
    return explain(ExplanationLevel::error,
                   "A notification opens no page, since there is no window with an OrreloHost yet: hand the "
                   "notification over after the window has been made.");
  }
  const auto top = root->topmost();
  // A notification may start the application, before the host has set the user. A user who has signed out
  // deliberately returns too.
  const auto userId = UserManager::storedUserId();
  userManager_.setUserId(userId);
  setCurrentUserId(userId);
  pageRouter_->route(top, page);
}

}  // namespace orrelo

#include "push/PushRouter.h"

#include "ui/KeyWindow.h"

namespace orrelo {

void PushRouter::route(const Page& page) const {
  const auto root = keyWindowRootViewController();
  if (!root) return;
  const auto top = root->topmost();
  // A notification may open the application before the host has set the user. The last user deliberately
  // returns after a sign-out too, and replaces nobody else: the stored id is that of the last `setUser`.
  const auto userId = UserManager::storedUserId();
  userManager_.setUserId(userId);
  setCurrentUserId(userId);
  pageRouter_->route(top, page);
}

}  // namespace orrelo

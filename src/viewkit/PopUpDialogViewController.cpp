#include "viewkit/PopUpDialogViewController.h"

#include "events/UserEventTracker.h"

namespace orrelo {

void PopUpDialogViewController::viewDidLoad() {
  imageView->load(content.imageUrl);
  UserEventTracker::track(UserEventName::visit, {{UserEventValueKey::pageName, pageName}});
}

}  // namespace orrelo

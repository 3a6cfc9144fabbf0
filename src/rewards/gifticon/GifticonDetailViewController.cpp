#include "rewards/gifticon/GifticonDetailViewController.h"

#include "events/UserEventTracker.h"

#include <variant>

namespace orrelo {

void GifticonDetailViewController::viewDidLoad() {
  ViewController::viewDidLoad();
  UserEventTracker::track(UserEventName::visit, {{UserEventValueKey::pageName, "gifticon_detail"}});
  isLoading.set(true);
  const std::weak_ptr<ViewController> weak = weak_from_this();
  const bool hasBegun = imageView->load(imageUrl, [weak](const Result<ImagePtr>& result) {
    const auto self = std::static_pointer_cast<GifticonDetailViewController>(weak.lock());
    if (self) self->didLoad(std::holds_alternative<ImagePtr>(result));
  });
  if (!hasBegun) didLoad(false);
}

void GifticonDetailViewController::didLoad(bool isSuccess) {
  isLoading.set(false);
  errorView->setHidden(isSuccess);
}

}  // namespace orrelo

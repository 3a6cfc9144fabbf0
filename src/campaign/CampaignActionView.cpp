#include "campaign/CampaignActionView.h"

#include <utility>

namespace orrelo {

void CampaignActionView::configure(const CampaignAction& action, const Color& color,
                                   std::function<void()> onTap) {
  actionUrl_ = action.actionUrl;
  onTap_ = std::move(onTap);
  state.set({action.title, action.statusMessage, action.isEnabled, color});
}

void CampaignActionView::onClick() {
  const auto screen = delegate.lock();
  if (!actionUrl_ || !screen || !state.value().isEnabled) return;
  const auto tapped = onTap_;  // the reply may destroy this view
  screen->participate(*actionUrl_);
  if (tapped) tapped();
}

}  // namespace orrelo

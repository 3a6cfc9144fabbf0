#include "campaign/CampaignActionView.h"

#include <utility>

namespace orrelo {

void CampaignActionView::configure(const CampaignAction& action, const Color& color,
                                   std::function<void()> tapped) {
  actionUrl = action.actionUrl;
  onTap = std::move(tapped);
  state.set({action.title, action.statusMessage, action.isEnabled, color});
}

void CampaignActionView::onClick() {
  const auto screen = delegate.lock();
  if (!actionUrl || !screen || !state.value().isEnabled) return;
  const auto tapped = onTap;  // the answer may replace this view
  screen->participate(*actionUrl);
  if (tapped) tapped();
}

}  // namespace orrelo

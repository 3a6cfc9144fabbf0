#include "quick/campaign/CampaignScreenBridge.h"

#include "quick/bridge/Kinds.h"

namespace orrelo::quick {

CampaignScreenBridge::CampaignScreenBridge(const std::shared_ptr<CampaignViewController>& screen,
                                           QObject* parent)
    : PageBridge(screen, parent), error(new ErrorBridge(screen->errorView, this)), campaign_(*screen) {
  connect(this, &ScreenBridge::stateChanged, this, &CampaignScreenBridge::updateContent);
  follow(campaign_.stateChanges());
}

void CampaignScreenBridge::updateContent() {
  const auto view = campaign_.state().content;
  if ((content_ ? content_->view() : nullptr) == view) return;
  const auto former = std::exchange(content_, view ? makeBridge(view, this) : nullptr);
  Q_EMIT contentChanged();
  // `deleteLater` keeps it alive until the item that draws it, which QML also deletes later, is gone.
  if (former) former->deleteLater();
}

}  // namespace orrelo::quick

#include "moc_CampaignScreenBridge.cpp"

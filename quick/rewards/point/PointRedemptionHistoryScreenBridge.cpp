#include "quick/rewards/point/PointRedemptionHistoryScreenBridge.h"

namespace orrelo::quick {

PointRedemptionHistoryScreenBridge::PointRedemptionHistoryScreenBridge(
    const std::shared_ptr<PointRedemptionHistoryViewController>& screen, QObject* parent)
    : PageBridge(screen, parent),
      point(new PointBridge(screen->pointView, this)),
      rows(new PointRedemptionHistoryRows(*screen, this)),
      error(new ErrorBridge(screen->errorView, this)),
      history_(*screen) {
  connect(this, &ScreenBridge::stateChanged, rows, &PointRedemptionHistoryRows::update);
  follow(history_.stateChanges());
}

void PointRedemptionHistoryScreenBridge::willDisplay(int lastRow) {
  if (lastRow >= 0) history_.willDisplay(static_cast<std::size_t>(lastRow));
}

}  // namespace orrelo::quick

#include "moc_PointRedemptionHistoryScreenBridge.cpp"

#pragma once

#include "quick/rewards/point/PointBridge.h"
#include "quick/rewards/point/PointRedemptionHistoryRows.h"
#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"

namespace orrelo::quick {

class PointRedemptionHistoryScreenBridge final : public orrelo::quick::PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::PointBridge* point MEMBER point CONSTANT)
  Q_PROPERTY(orrelo::quick::PointRedemptionHistoryRows* rows MEMBER rows CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)

 public:
  PointRedemptionHistoryScreenBridge(const std::shared_ptr<PointRedemptionHistoryViewController>& screen,
                                     QObject* parent);

  PointBridge* const point;
  PointRedemptionHistoryRows* const rows;
  ErrorBridge* const error;

  bool isLoading() const { return history_.state().isLoading; }

  /// Called when the user asks for more rows.
  Q_INVOKABLE void refresh() { history_.refresh(); }
  /// Called with the last row in sight.
  Q_INVOKABLE void willDisplay(int lastRow);

 private:
  PointRedemptionHistoryViewController& history_;
};

}  // namespace orrelo::quick

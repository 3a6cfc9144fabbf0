#pragma once

#include "campaign/CampaignActionView.h"
#include "quick/bridge/ViewBridge.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class CampaignActionBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString title READ title NOTIFY stateChanged)
  Q_PROPERTY(QString statusMessage READ statusMessage NOTIFY stateChanged)
  Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY stateChanged)
  /// The button's fill colour, dimmed if the button is disabled.
  Q_PROPERTY(QColor fill READ fill NOTIFY stateChanged)
  Q_PROPERTY(QColor textColor READ textColor NOTIFY stateChanged)

 public:
  CampaignActionBridge(const std::shared_ptr<CampaignActionView>& view, QObject* parent)
      : ViewBridge(view, parent), action_(*view) {
    follow(action_.state);
  }

  QString title() const { return toQt(action_.state.value().title); }
  QString statusMessage() const { return toQt(action_.state.value().statusMessage); }
  bool isEnabled() const { return action_.state.value().isEnabled; }
  QColor fill() const { return toQt(buttonFill(action_.state.value().color, isEnabled())); }
  QColor textColor() const { return toQt(buttonTextColor(action_.state.value().color, isEnabled())); }

  Q_INVOKABLE void onClick() { action_.onClick(); }

 private:
  CampaignActionView& action_;
};

}  // namespace orrelo::quick

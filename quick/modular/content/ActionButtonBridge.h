#pragma once

#include "modular/content/ActionButtonView.h"
#include "quick/bridge/ViewBridge.h"

#include <QColor>

namespace orrelo::quick {

class ActionButtonBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text READ text CONSTANT)
  Q_PROPERTY(QString statusMessage READ statusMessage CONSTANT)
  Q_PROPERTY(bool isEnabled READ isEnabled CONSTANT)
  /// The button's fill colour.
  Q_PROPERTY(QColor fill READ fill CONSTANT)
  Q_PROPERTY(QColor titleColor READ titleColor CONSTANT)
  Q_PROPERTY(QColor statusColor READ statusColor CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)
  Q_PROPERTY(double buttonHeight READ buttonHeight CONSTANT)

 public:
  ActionButtonBridge(const std::shared_ptr<ActionButtonView>& view, QObject* parent)
      : ViewBridge(view, parent), action_(*view) {}

  QString text() const { return toQt(action_.content.text); }
  QString statusMessage() const { return toQt(action_.content.statusMessage); }
  bool isEnabled() const { return action_.content.isEnabled; }
  QColor fill() const { return toQt(action_.fill()); }
  QColor titleColor() const { return toQt(action_.titleColor()); }
  QColor statusColor() const { return toQt(ActionButtonView::statusColor); }
  double margin() const { return ActionButtonView::margins.left; }
  double spacing() const { return ActionButtonView::spacing; }
  double buttonHeight() const { return ActionButtonView::buttonHeight; }

  Q_INVOKABLE void onClick() { action_.onClick(); }

 private:
  ActionButtonView& action_;
};

}  // namespace orrelo::quick

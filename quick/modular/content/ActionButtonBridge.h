#pragma once

#include "modular/content/ActionButtonView.h"
#include "quick/bridge/ViewBridge.h"

#include <QColor>
#include <algorithm>

namespace orrelo::quick {

class ActionButtonBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text MEMBER text CONSTANT)
  Q_PROPERTY(QString statusMessage MEMBER statusMessage CONSTANT)
  Q_PROPERTY(bool isEnabled MEMBER isEnabled CONSTANT)
  Q_PROPERTY(QColor fill MEMBER fill CONSTANT)
  Q_PROPERTY(QColor titleColor MEMBER titleColor CONSTANT)

 public:
  ActionButtonBridge(const std::shared_ptr<ActionButtonView>& view, QObject* parent)
      : ViewBridge(view, parent),
        text(toQt(view->content.text)),
        statusMessage(toQt(view->content.statusMessage)),
        isEnabled(view->content.isEnabled),
        fill(toQt(view->fill())),
        titleColor(toQt(view->titleColor())),
        action_(*view) {}

  const QString text;
  const QString statusMessage;
  const bool isEnabled;
  const QColor fill;
  const QColor titleColor;

  Q_INVOKABLE void onClick() { action_.onClick(); }

 protected:
  // The layout of ActionButtonView.qml. A button without a text has the height of one line.
  double measuredHeight(double width, const TextMeasure& measure) const override {
    const double inner = width - 2 * 16.0;
    const double label = measure.height(text.isEmpty() ? QStringLiteral(" ") : text, inner - 2 * 16.0,
                                        {.size = 16.0, .isBold = true});
    return std::max(56.0, label + 24.0) + 10.0 + measure.height(statusMessage, inner, {.size = 12.0});
  }

 private:
  const ActionButtonView& action_;
};

}  // namespace orrelo::quick

#pragma once

#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"
#include "viewkit/ToastView.h"

#include <QColor>

namespace orrelo::quick {

class ToastBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString message MEMBER message CONSTANT)
  Q_PROPERTY(QColor color MEMBER color CONSTANT)
  Q_PROPERTY(orrelo::quick::AnimationValue fade MEMBER fade CONSTANT)

 public:
  ToastBridge(const std::shared_ptr<ToastView>& view, QObject* parent)
      : ViewBridge(view, parent),
        toast(*view),
        message(toQt(view->message)),
        color(toQt(view->backgroundColor)) {}

  const ToastView& toast;
  const QString message;
  const QColor color;
  const AnimationValue fade = AnimationValue(ToastView::fade);
};

}  // namespace orrelo::quick

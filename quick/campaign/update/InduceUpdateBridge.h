#pragma once

#include "campaign/update/InduceUpdateView.h"
#include "quick/viewkit/ErrorBridge.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class InduceUpdateBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)
  Q_PROPERTY(QString buttonTitle MEMBER buttonTitle CONSTANT)
  Q_PROPERTY(QColor color MEMBER color CONSTANT)

 public:
  InduceUpdateBridge(const std::shared_ptr<InduceUpdateView>& view, QObject* parent)
      : ViewBridge(view, parent),
        error(new ErrorBridge(view->errorView, this)),
        color(toQt(legibleOnWhite(view->color))),
        update_(*view) {}

  ErrorBridge* const error;
  const QString buttonTitle = toQt(InduceUpdateView::buttonTitle);
  const QColor color;

  Q_INVOKABLE void routeToUpdateLink() { update_.routeToUpdateLink(); }

 private:
  InduceUpdateView& update_;
};

}  // namespace orrelo::quick

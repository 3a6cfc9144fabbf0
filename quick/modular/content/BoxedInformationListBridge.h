#pragma once

#include "modular/content/BoxedInformationListView.h"
#include "quick/modular/content/InformationBoxBridge.h"

#include <QVariantList>

namespace orrelo::quick {

class BoxedInformationListBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString title MEMBER title CONSTANT)
  Q_PROPERTY(QVariantList boxes MEMBER boxes CONSTANT)

 public:
  BoxedInformationListBridge(const std::shared_ptr<BoxedInformationListView>& view, QObject* parent)
      : ViewBridge(view, parent),
        title(toQt(view->title)),
        boxes(bridgesOf<InformationBoxBridge>(view->boxes, this)) {}

  const QString title;
  const QVariantList boxes;
};

}  // namespace orrelo::quick

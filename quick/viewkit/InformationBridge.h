#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/InformationView.h"

namespace orrelo::quick {

class InformationBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle MEMBER firstTitle CONSTANT)
  Q_PROPERTY(QString secondTitle MEMBER secondTitle CONSTANT)
  Q_PROPERTY(QString guideMessage MEMBER guideMessage CONSTANT)

 public:
  InformationBridge(const std::shared_ptr<InformationView>& view, QObject* parent)
      : ViewBridge(view, parent),
        firstTitle(toQt(view->firstTitle)),
        secondTitle(toQt(view->secondTitle)),
        guideMessage(toQt(view->guideMessage)) {}

  const QString firstTitle;
  const QString secondTitle;
  const QString guideMessage;
};

}  // namespace orrelo::quick

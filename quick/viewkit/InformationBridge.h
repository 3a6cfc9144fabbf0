#pragma once

#include "quick/bridge/ViewBridge.h"
#include "quick/viewkit/blockHeights.h"
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

 protected:
  double measuredHeight(double width, const TextMeasure& measure) const override {
    const double inner = width - 2 * blockMargin;
    return titleRowsHeight(firstTitle, secondTitle, inner, measure) +
           measure.height(guideMessage, inner, {.size = 16.0});
  }
};

}  // namespace orrelo::quick

#pragma once

#include "modular/content/BoxedInformationListView.h"
#include "quick/modular/content/InformationBoxBridge.h"
#include "quick/viewkit/blockHeights.h"

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

 protected:
  // The layout of BoxedInformationListView.qml.
  double measuredHeight(double width, const TextMeasure& measure) const override {
    constexpr double spacing = 8.0;
    const double inner = width - 2 * blockMargin;
    double height = measure.height(title, inner, {.size = 18.0, .isBold = true});
    for (const auto& each : boxes) {
      if (height > 0.0) height += spacing;
      height += each.value<InformationBoxBridge*>()->measuredHeight(inner, measure);
    }
    return height;
  }
};

}  // namespace orrelo::quick

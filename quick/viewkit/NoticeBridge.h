#pragma once

#include "quick/bridge/ViewBridge.h"
#include "quick/viewkit/blockHeights.h"
#include "viewkit/NoticeView.h"

namespace orrelo::quick {

class NoticeBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text MEMBER text CONSTANT)

 public:
  NoticeBridge(const std::shared_ptr<NoticeView>& view, QObject* parent)
      : ViewBridge(view, parent), text(toQt(view->text)) {}

  const QString text;

 protected:
  double measuredHeight(double width, const TextMeasure& measure) const override {
    return measure.height(text, width - 2 * blockMargin, {.size = 12.0, .lineHeight = 1.4});
  }
};

}  // namespace orrelo::quick

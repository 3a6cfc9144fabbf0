#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/viewkit/ToastLayerBridge.h"
#include "viewkit/ORLUIViewController.h"

namespace orrelo::quick {

/// A full-page screen, with the kit's own bar if the page has one.
class PageBridge : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString barTitle READ barTitle NOTIFY stateChanged)
  Q_PROPERTY(double barHeight READ barHeight NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ToastLayerBridge* toasts MEMBER toasts CONSTANT)

 public:
  PageBridge(const std::shared_ptr<ORLUIViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent), toasts(new ToastLayerBridge(screen->toastLayer, this)), page_(*screen) {
    follow(page_.modalTopBarChanges());
  }

  ToastLayerBridge* const toasts;

  QString barTitle() const { return toQt(page_.modalTopBar().title.value_or("")); }
  double barHeight() const { return page_.modalTopBar().height; }

 private:
  ORLUIViewController& page_;
};

}  // namespace orrelo::quick

#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/viewkit/ToastsBridge.h"
#include "viewkit/ORLUIViewController.h"

namespace orrelo::quick {

/// A full-page screen, with the kit's own bar where it has one.
class PageBridge : public ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString barTitle READ barTitle NOTIFY stateChanged)
  Q_PROPERTY(double barHeight READ barHeight NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ToastsBridge* toasts READ toasts CONSTANT)

 public:
  PageBridge(const std::shared_ptr<ORLUIViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent), page_(*screen), toasts_(new ToastsBridge(screen->toastLayer, this)) {
    follow(page_.modalTopBars());
  }

  QString barTitle() const { return toQt(page_.modalTopBar().title.value_or("")); }
  double barHeight() const { return page_.modalTopBar().height; }
  ToastsBridge* toasts() const { return toasts_; }

 private:
  ORLUIViewController& page_;
  ToastsBridge* const toasts_;
};

}  // namespace orrelo::quick

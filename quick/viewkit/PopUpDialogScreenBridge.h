#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/image/ImageBridge.h"
#include "viewkit/PopUpDialogViewController.h"

namespace orrelo::quick {

class PopUpDialogScreenBridge final : public ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading READ heading CONSTANT)
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(QString closeText READ closeText CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)

 public:
  PopUpDialogScreenBridge(const std::shared_ptr<PopUpDialogViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent), dialog_(*screen), image_(new ImageBridge(screen->imageView, this)) {}

  QString heading() const { return toQt(dialog_.content.title); }
  QString label() const { return toQt(dialog_.content.label); }
  QString closeText() const { return toQt(PopUpDialogViewController::closeText); }
  ImageBridge* image() const { return image_; }

 private:
  PopUpDialogViewController& dialog_;
  ImageBridge* const image_;
};

}  // namespace orrelo::quick

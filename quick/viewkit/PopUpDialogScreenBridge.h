#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/image/ImageBridge.h"
#include "viewkit/PopUpDialogViewController.h"

namespace orrelo::quick {

class PopUpDialogScreenBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading MEMBER heading CONSTANT)
  Q_PROPERTY(QString label MEMBER label CONSTANT)
  Q_PROPERTY(QString closeText MEMBER closeText CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)

 public:
  PopUpDialogScreenBridge(const std::shared_ptr<PopUpDialogViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent),
        heading(toQt(screen->content.title)),
        label(toQt(screen->content.label)),
        image(new ImageBridge(screen->imageView, this)) {}

  const QString heading;
  const QString label;
  const QString closeText = toQt(PopUpDialogViewController::closeText);
  ImageBridge* const image;
};

}  // namespace orrelo::quick

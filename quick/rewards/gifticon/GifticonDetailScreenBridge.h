#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/rewards/gifticon/ZoomImageBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "rewards/gifticon/GifticonDetailViewController.h"

namespace orrelo::quick {

class GifticonDetailScreenBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ZoomImageBridge* image MEMBER image CONSTANT)
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  Q_PROPERTY(QString buttonText MEMBER buttonText CONSTANT)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)

 public:
  GifticonDetailScreenBridge(const std::shared_ptr<GifticonDetailViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent),
        image(new ZoomImageBridge(screen->imageView, this)),
        buttonText(toQt(screen->buttonText)),
        error(new ErrorBridge(screen->errorView, this)),
        detail_(*screen) {
    follow(detail_.isLoading.changes());
  }

  ZoomImageBridge* const image;
  const QString accessibilityLabel = toQt(GifticonDetailViewController::accessibilityLabel);
  const QString buttonText;
  ErrorBridge* const error;

  bool isLoading() const { return detail_.isLoading.value(); }

 private:
  const GifticonDetailViewController& detail_;
};

}  // namespace orrelo::quick

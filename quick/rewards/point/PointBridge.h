#pragma once

#include "quick/image/ImageBridge.h"
#include "rewards/point/PointView.h"

#include <QUrl>

namespace orrelo::quick {

class PointBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString myPoint READ myPoint NOTIFY stateChanged)
  Q_PROPERTY(QString pointAmount READ pointAmount NOTIFY stateChanged)
  Q_PROPERTY(QString pointUnit READ pointUnit NOTIFY stateChanged)
  Q_PROPERTY(bool isHidden READ isHidden NOTIFY stateChanged)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)
  Q_PROPERTY(QUrl goToHistoryAsset MEMBER goToHistoryAsset CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)

 public:
  PointBridge(const std::shared_ptr<PointView>& view, QObject* parent)
      : ViewBridge(view, parent), image(new ImageBridge(view->rewardImageView, this)), point_(*view) {
    follow(point_.state);
  }

  const QUrl goToHistoryAsset = assetFile(PointView::goToHistoryAsset);
  ImageBridge* const image;

  QString myPoint() const { return toQt(point_.state.value().myPoint); }
  QString pointAmount() const { return toQt(point_.state.value().pointAmount); }
  QString pointUnit() const { return toQt(point_.state.value().pointUnit); }
  bool isHidden() const { return point_.state.value().isHidden; }
  QString accessibilityLabel() const { return toQt(point_.state.value().accessibilityLabel); }

 private:
  const PointView& point_;
};

}  // namespace orrelo::quick

#pragma once

#include "modular/content/InformationBox.h"
#include "quick/image/ImageBridge.h"

#include <QColor>

namespace orrelo::quick {

class InformationBoxBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString leftText MEMBER leftText CONSTANT)
  Q_PROPERTY(QString rightText MEMBER rightText CONSTANT)
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  Q_PROPERTY(QColor rightTextColor MEMBER rightTextColor CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)
  Q_PROPERTY(double imageHeight MEMBER imageHeight CONSTANT)
  /// 0 until the image has been loaded.
  Q_PROPERTY(double imageWidth READ imageWidth NOTIFY stateChanged)

 public:
  InformationBoxBridge(const std::shared_ptr<InformationBox>& view, QObject* parent)
      : ViewBridge(view, parent),
        leftText(toQt(view->leftText)),
        rightText(toQt(view->rightText)),
        accessibilityLabel(toQt(view->accessibilityLabel())),
        rightTextColor(toQt(view->rightTextColor)),
        image(new ImageBridge(view->leftImageView, this)),
        box_(*view) {
    follow(box_.imageWidth);
  }

  const QString leftText;
  const QString rightText;
  const QString accessibilityLabel;
  const QColor rightTextColor;
  ImageBridge* const image;
  const double imageHeight = InformationBox::imageHeight;

  double imageWidth() const { return box_.imageWidth.value().value_or(0.0); }

  double measuredHeight(double width, const TextMeasure& measure) const override;

 private:
  const InformationBox& box_;
};

}  // namespace orrelo::quick

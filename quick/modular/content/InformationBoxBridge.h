#pragma once

#include "modular/content/InformationBox.h"
#include "quick/image/ImageBridge.h"

#include <QColor>

namespace orrelo::quick {

class InformationBoxBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString leftText READ leftText CONSTANT)
  Q_PROPERTY(QString rightText READ rightText CONSTANT)
  Q_PROPERTY(QColor rightTextColor READ rightTextColor CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)
  /// 0 until the image has been loaded.
  Q_PROPERTY(double imageWidth READ imageWidth NOTIFY stateChanged)
  Q_PROPERTY(double imageHeight READ imageHeight CONSTANT)
  Q_PROPERTY(double boxHeight READ boxHeight CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double leftSpacing READ leftSpacing CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)
  Q_PROPERTY(QColor backgroundColor READ backgroundColor CONSTANT)

 public:
  InformationBoxBridge(const std::shared_ptr<InformationBox>& view, QObject* parent)
      : ViewBridge(view, parent), box_(*view), image_(new ImageBridge(view->leftImageView, this)) {
    follow(box_.imageWidth);
  }

  QString leftText() const { return toQt(box_.leftText); }
  QString rightText() const { return toQt(box_.rightText); }
  QColor rightTextColor() const { return toQt(box_.rightTextColor); }
  ImageBridge* image() const { return image_; }
  double imageWidth() const { return box_.imageWidth.value().value_or(0.0); }
  double imageHeight() const { return InformationBox::imageHeight; }
  double boxHeight() const { return InformationBox::height; }
  double margin() const { return InformationBox::margins.left; }
  double leftSpacing() const { return InformationBox::leftSpacing; }
  double cornerRadius() const { return InformationBox::cornerRadius; }
  QColor backgroundColor() const { return toQt(InformationBox::backgroundColor); }

 private:
  const InformationBox& box_;
  ImageBridge* const image_;
};

}  // namespace orrelo::quick

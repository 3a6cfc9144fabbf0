#pragma once

#include "quick/bridge/Conversions.h"
#include "rewards/gifticon/GifticonViewCell.h"

#include <QColor>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// A cell of the gifticon screen. The object stays the same when the cell's content changes.
class GifticonCellBridge final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString tagLabel READ tagLabel NOTIFY stateChanged)
  Q_PROPERTY(QString titleLabel READ titleLabel NOTIFY stateChanged)
  Q_PROPERTY(QString limitDateLabel READ limitDateLabel NOTIFY stateChanged)
  Q_PROPERTY(QUrl icon READ icon NOTIFY stateChanged)
  Q_PROPERTY(double iconAlpha READ iconAlpha NOTIFY stateChanged)
  Q_PROPERTY(QString iconLabel READ iconLabel NOTIFY stateChanged)
  Q_PROPERTY(QColor iconLabelColor READ iconLabelColor NOTIFY stateChanged)
  Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY stateChanged)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  explicit GifticonCellBridge(QObject* parent) : QObject(parent) {}

  QString tagLabel() const { return toQt(cell_.tagLabel); }
  QString titleLabel() const { return toQt(cell_.titleLabel); }
  QString limitDateLabel() const { return toQt(cell_.limitDateLabel); }
  QUrl icon() const { return assetFile(cell_.iconAsset); }
  double iconAlpha() const { return cell_.iconAlpha; }
  QString iconLabel() const { return toQt(cell_.iconLabel); }
  QColor iconLabelColor() const { return toQt(cell_.iconLabelColor); }
  bool isEnabled() const { return cell_.isEnabled; }
  QString accessibilityLabel() const { return toQt(cell_.accessibilityLabel); }

  void set(const GifticonViewCell& cell) {
    if (cell == cell_) return;
    cell_ = cell;
    Q_EMIT stateChanged();
  }

 Q_SIGNALS:
  void stateChanged();

 private:
  GifticonViewCell cell_;
};

}  // namespace orrelo::quick

#pragma once

#include "campaign/attendance/CampaignCalendarViewCell.h"
#include "quick/image/ImageBridge.h"

#include <QColor>
#include <utility>

namespace orrelo::quick {

/// A cell of the calendar. The object stays the same when the cell's content changes.
class CalendarCellBridge final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString day READ day NOTIFY stateChanged)
  Q_PROPERTY(QColor dayColor READ dayColor NOTIFY stateChanged)
  Q_PROPERTY(QString bottomText READ bottomText NOTIFY stateChanged)
  Q_PROPERTY(QColor bottomColor READ bottomColor NOTIFY stateChanged)
  Q_PROPERTY(QColor backgroundColor READ backgroundColor NOTIFY stateChanged)
  Q_PROPERTY(double borderWidth READ borderWidth NOTIFY stateChanged)
  Q_PROPERTY(QColor borderColor READ borderColor NOTIFY stateChanged)
  Q_PROPERTY(bool hasIcon READ hasIcon NOTIFY stateChanged)
  /// True if there is nothing but the day: no background, border, icon or second text.
  Q_PROPERTY(bool isPlain READ isPlain NOTIFY stateChanged)
  /// Null if the service provides no icon.
  Q_PROPERTY(orrelo::quick::ImageBridge* icon READ icon NOTIFY stateChanged)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  explicit CalendarCellBridge(QObject* parent) : QObject(parent) {}

  QString day() const { return toQt(cell_.day); }
  QColor dayColor() const { return toQt(cell_.dayColor); }
  QString bottomText() const { return toQt(cell_.bottomText); }
  QColor bottomColor() const { return toQt(cell_.bottomColor); }
  QColor backgroundColor() const { return toQt(cell_.backgroundColor); }
  double borderWidth() const { return cell_.borderWidth; }
  QColor borderColor() const { return toQt(cell_.borderColor); }
  bool hasIcon() const { return cell_.hasIcon; }
  bool isPlain() const {
    return cell_.backgroundColor.alpha <= 0.0 && cell_.borderWidth <= 0.0 && icon_ == nullptr &&
           cell_.bottomText.empty();
  }
  ImageBridge* icon() const { return icon_; }
  QString accessibilityLabel() const { return toQt(cell_.accessibilityLabel); }

  void set(CampaignCalendarViewCell cell, ImageBridge* icon) {
    if (cell == cell_) return;
    cell_ = std::move(cell);
    icon_ = icon;
    Q_EMIT stateChanged();
  }

 Q_SIGNALS:
  void stateChanged();

 private:
  CampaignCalendarViewCell cell_;
  ImageBridge* icon_ = nullptr;
};

}  // namespace orrelo::quick

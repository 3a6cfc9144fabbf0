#pragma once

#include "campaign/attendance/CampaignCalendarView.h"
#include "quick/bridge/ListBridge.h"
#include "quick/image/ImageBridge.h"
#include "viewkit/legibility.h"

#include <QColor>
#include <map>
#include <string>

namespace orrelo::quick {

class CampaignCalendarBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString monthText READ monthText NOTIFY stateChanged)
  Q_PROPERTY(QString firstDescription READ firstDescription NOTIFY stateChanged)
  Q_PROPERTY(QString secondDescription READ secondDescription NOTIFY stateChanged)
  Q_PROPERTY(QColor secondDescriptionColor READ secondDescriptionColor NOTIFY stateChanged)
  Q_PROPERTY(QColor primaryColor READ primaryColor NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ListBridge* cells MEMBER cells CONSTANT)
  Q_PROPERTY(int columnCount MEMBER columnCount CONSTANT)
  Q_PROPERTY(QString todayLegend MEMBER todayLegend CONSTANT)
  Q_PROPERTY(QString attendanceLegend MEMBER attendanceLegend CONSTANT)

 public:
  CampaignCalendarBridge(const std::shared_ptr<CampaignCalendarView>& view, QObject* parent);

  ListBridge* const cells;
  const int columnCount = static_cast<int>(CampaignCalendarView::columnCount);
  const QString todayLegend = toQt(CampaignCalendarView::todayLegend);
  const QString attendanceLegend = toQt(CampaignCalendarView::attendanceLegend);

  QString monthText() const { return toQt(calendar_.state.value().monthText); }
  QString firstDescription() const { return toQt(calendar_.state.value().firstDescription); }
  QString secondDescription() const { return toQt(calendar_.state.value().secondDescription); }
  QColor primaryColor() const { return toQt(calendar_.state.value().primaryColor); }
  QColor secondDescriptionColor() const { return toQt(legibleOnWhite(calendar_.state.value().primaryColor)); }

 private:
  void updateCells();
  /// Returns the image at this URL; null for an empty URL.
  ImageBridge* iconOf(const std::string& url);

  CampaignCalendarView& calendar_;
  /// Usually all cells share one image.
  std::map<std::shared_ptr<ImageView>, ImageBridge*> icons_;
};

}  // namespace orrelo::quick

#pragma once

#include "campaign/attendance/CampaignCalendarView.h"
#include "quick/bridge/ListBridge.h"
#include "quick/image/ImageBridge.h"
#include "viewkit/legibility.h"

#include <QColor>
#include <map>
#include <string>

namespace orrelo::quick {

class CampaignCalendarBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString monthText READ monthText NOTIFY stateChanged)
  Q_PROPERTY(QString firstDescription READ firstDescription NOTIFY stateChanged)
  Q_PROPERTY(QString secondDescription READ secondDescription NOTIFY stateChanged)
  Q_PROPERTY(QColor secondDescriptionColor READ secondDescriptionColor NOTIFY stateChanged)
  Q_PROPERTY(QColor primaryColor READ primaryColor NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ListBridge* cells READ cells CONSTANT)
  Q_PROPERTY(int columnCount READ columnCount CONSTANT)
  Q_PROPERTY(QString todayLegend READ todayLegend CONSTANT)
  Q_PROPERTY(QString attendanceLegend READ attendanceLegend CONSTANT)
  Q_PROPERTY(QColor legendTextColor READ legendTextColor CONSTANT)
  Q_PROPERTY(double dayFontShare READ dayFontShare CONSTANT)
  Q_PROPERTY(double bottomFontShare READ bottomFontShare CONSTANT)
  Q_PROPERTY(double iconShare READ iconShare CONSTANT)

 public:
  CampaignCalendarBridge(const std::shared_ptr<CampaignCalendarView>& view, QObject* parent);

  QString monthText() const { return toQt(calendar_.state.value().monthText); }
  QString firstDescription() const { return toQt(calendar_.state.value().firstDescription); }
  QString secondDescription() const { return toQt(calendar_.state.value().secondDescription); }
  QColor primaryColor() const { return toQt(calendar_.state.value().primaryColor); }
  QColor secondDescriptionColor() const { return toQt(legibleOnWhite(calendar_.state.value().primaryColor)); }
  ListBridge* cells() const { return cells_; }
  int columnCount() const { return static_cast<int>(CampaignCalendarView::columnCount); }
  QString todayLegend() const { return toQt(CampaignCalendarView::todayLegend); }
  QString attendanceLegend() const { return toQt(CampaignCalendarView::attendanceLegend); }
  QColor legendTextColor() const { return toQt(CampaignCalendarView::legendTextColor); }
  double dayFontShare() const { return CampaignCalendarView::dayFontShare; }
  double bottomFontShare() const { return CampaignCalendarView::bottomFontShare; }
  double iconShare() const { return CampaignCalendarView::iconShare; }

 private:
  void updateCells();
  /// Returns the image at this URL; null for an empty URL.
  ImageBridge* iconOf(const std::string& url);

  CampaignCalendarView& calendar_;
  ListBridge* const cells_;
  /// Usually all cells share one image.
  std::map<std::shared_ptr<ImageView>, ImageBridge*> icons_;
};

}  // namespace orrelo::quick

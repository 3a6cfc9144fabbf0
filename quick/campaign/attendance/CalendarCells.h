#pragma once

#include "campaign/attendance/CampaignCalendarView.h"
#include "quick/image/ImageBridge.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <map>
#include <string>
#include <vector>

namespace orrelo::quick {

/// The cells of a calendar, row by row.
class CalendarCells : public QAbstractListModel {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  using QAbstractListModel::QAbstractListModel;

  void set(std::vector<CampaignCalendarViewCell> cells);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  ImageBridge* icon(const CampaignCalendarViewCell& cell) const;

  std::vector<CampaignCalendarViewCell> cells_;
  /// By address; mostly one for all cells.
  std::map<std::string, ImageBridge*> icons_;
};

}  // namespace orrelo::quick

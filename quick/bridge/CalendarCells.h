#pragma once

#include "campaign/attendance/CampaignCalendarView.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

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
  std::vector<CampaignCalendarViewCell> cells_;
};

}  // namespace orrelo::quick

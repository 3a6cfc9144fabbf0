#pragma once

#include "quick/inspector/inspectorRows.h"

#include <QAbstractListModel>

namespace orrelo::quick {

/// The rows of the inspector as a list model.
class InspectorModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  /// Replaces all rows.
  void reset(QList<InspectorRow> rows);
  /// Keeps the rows that have not changed, so that the list neither jumps nor draws them again.
  void update(const QList<InspectorRow>& rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  enum Role { IsHeading = Qt::UserRole, Title, Value, Detail, Tone, Summary };

  QList<InspectorRow> rows_;
};

}  // namespace orrelo::quick

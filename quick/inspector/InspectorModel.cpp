#include "quick/inspector/InspectorModel.h"

#include <algorithm>
#include <utility>

namespace orrelo::quick {

void InspectorModel::reset(QList<InspectorRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int InspectorModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant InspectorModel::data(const QModelIndex& index, int role) const {
  const auto& row = rows_[index.row()];
  switch (role) {
    case IsHeading:
      return row.isHeading;
    case Title:
      return row.title;
    case Value:
      return row.value;
    case Detail:
      return row.detail;
    case Tone:
      return QVariant::fromValue(row.tone);
    case Summary:
      return row.summary();
    default:
      return {};
  }
}

QHash<int, QByteArray> InspectorModel::roleNames() const {
  return {{IsHeading, "isHeading"}, {Title, "title"}, {Value, "value"},
          {Detail, "detail"},       {Tone, "tone"},   {Summary, "summary"}};
}

void InspectorModel::update(const QList<InspectorRow>& rows) {
  const auto common = std::min(rows.size(), rows_.size());
  for (qsizetype i = 0; i < common; ++i) {
    if (rows_[i] == rows[i]) continue;
    rows_[i] = rows[i];
    Q_EMIT dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)));
  }
  if (rows.size() > rows_.size()) {
    beginInsertRows({}, static_cast<int>(common), static_cast<int>(rows.size()) - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows.size() < rows_.size()) {
    beginRemoveRows({}, static_cast<int>(common), static_cast<int>(rows_.size()) - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

}  // namespace orrelo::quick

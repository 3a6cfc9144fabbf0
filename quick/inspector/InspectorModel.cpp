#include "quick/inspector/InspectorModel.h"

#include <orrelo/Orrelo.h>

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

namespace orrelo::quick {
namespace {

constexpr std::chrono::seconds updateInterval{1};

}  // namespace

InspectorModel::InspectorModel(QObject* parent) : QAbstractListModel(parent) {
  update();
  connect(&timer_, &QTimer::timeout, this, &InspectorModel::update);
  timer_.start(updateInterval);
}

void InspectorModel::setSection(inspector::Section section) {
  if (section_ == section) return;
  section_ = section;
  beginResetModel();
  rows_ = inspectorRows(Orrelo::diagnostics(), section_);
  endResetModel();
  Q_EMIT sectionChanged();
}

void InspectorModel::copyJson() const {
  QGuiApplication::clipboard()->setText(QString::fromStdString(Orrelo::diagnostics().json()));
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
    default:
      return {};
  }
}

QHash<int, QByteArray> InspectorModel::roleNames() const {
  return {{IsHeading, "isHeading"}, {Title, "title"}, {Value, "value"}, {Detail, "detail"}, {Tone, "tone"}};
}

// Keeps the rows that have not changed, so that the list neither jumps nor draws them again.
void InspectorModel::update() {
  const auto rows = inspectorRows(Orrelo::diagnostics(), section_);
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

#include "quick/bridge/ListBridge.h"

namespace orrelo::quick {

void ListBridge::insert(std::size_t at, QObject* row) {
  row->setParent(this);
  beginInsertRows({}, static_cast<int>(at), static_cast<int>(at));
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at), row);
  endInsertRows();
}

void ListBridge::remove(std::size_t at) {
  take(at)->deleteLater();  // runs after that of the delegate, which still reads the row
}

QObject* ListBridge::take(std::size_t at) {
  auto* const taken = rows_[at];
  beginRemoveRows({}, static_cast<int>(at), static_cast<int>(at));
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(at));
  endRemoveRows();
  return taken;
}

QObject* ListBridge::spare() {
  if (spares_.empty()) return nullptr;
  auto* const row = spares_.back();
  spares_.pop_back();
  return row;
}

int ListBridge::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ListBridge::data(const QModelIndex& index, int) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  return QVariant::fromValue(rows_[static_cast<std::size_t>(index.row())]);
}

// A model with a single role also exposes it to QML as `modelData`.
QHash<int, QByteArray> ListBridge::roleNames() const {
  return {{Qt::UserRole, "row"}};
}

}  // namespace orrelo::quick

#include "moc_ListBridge.cpp"

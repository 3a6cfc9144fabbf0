#include "quick/viewkit/ToastsBridge.h"

#include <QAccessible>
#include <algorithm>
#include <utility>

namespace orrelo::quick {

ToastsBridge::ToastsBridge(std::shared_ptr<ToastLayer> layer, QObject* parent)
    : QAbstractListModel(parent), layer_(std::move(layer)) {
  subscriptions_.follow(layer_->toasts.stream(), [this](const auto& toasts) { update(toasts); });
}

void ToastsBridge::announce(QObject* item) const {
  QAccessibleEvent event(item, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void ToastsBridge::fadeDidFinish(ToastBridge* toast) {
  layer_->fadeDidFinish(toast->toast());
}

void ToastsBridge::update(const std::vector<std::shared_ptr<ToastView>>& toasts) {
  for (std::size_t row = rows_.size(); row-- > 0;) {
    if (std::find(toasts.begin(), toasts.end(), rows_[row]->view()) != toasts.end()) continue;
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
    auto* const gone = rows_[row];
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    endRemoveRows();
    gone->deleteLater();  // after whoever draws it, which goes in the same way
  }
  for (const auto& toast : toasts) {
    const bool isThere =
        std::any_of(rows_.begin(), rows_.end(), [&](const auto* row) { return row->view() == toast; });
    if (isThere) continue;
    beginInsertRows({}, rowCount(), rowCount());
    rows_.push_back(new ToastBridge(toast, this));
    endInsertRows();
  }
}

int ToastsBridge::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ToastsBridge::data(const QModelIndex& index, int) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  return QVariant::fromValue(rows_[static_cast<std::size_t>(index.row())]);
}

QHash<int, QByteArray> ToastsBridge::roleNames() const {
  return {{Qt::UserRole, "toast"}};
}

}  // namespace orrelo::quick

#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <algorithm>
#include <cstddef>
#include <vector>

namespace orrelo::quick {

/// A list as QML's views take it: one object a row, which a delegate gets as `modelData`. A row that stays
/// keeps its object, and so its delegate; what changes within a row, its object tells itself. The list owns
/// its rows.
class ListBridge : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")

 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<QObject*>& rows() const { return rows_; }
  /// Takes the row, whose parent the list becomes.
  void insert(std::size_t at, QObject* row);
  void append(QObject* row) { insert(rows_.size(), row); }
  /// The object goes after whoever draws it.
  void remove(std::size_t at);

  /// Becomes a row for each of `items`, in their order; items that were there before have kept theirs.
  /// `isOf(row, item)` tells whose a row is, `make(item)` makes one.
  template <class Row, class Items, class IsOf, class Make>
  void become(const Items& items, IsOf isOf, Make make) {
    const auto is = [&isOf](QObject* row, const auto& item) { return isOf(*static_cast<Row*>(row), item); };
    for (std::size_t at = rows_.size(); at-- > 0;) {
      const auto isWanted = [&](const auto& item) { return is(rows_[at], item); };
      if (std::none_of(items.begin(), items.end(), isWanted)) remove(at);
    }
    std::size_t at = 0;
    for (const auto& item : items) {
      if (at == rows_.size() || !is(rows_[at], item)) insert(at, make(item));
      ++at;
    }
  }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  std::vector<QObject*> rows_;
};

}  // namespace orrelo::quick

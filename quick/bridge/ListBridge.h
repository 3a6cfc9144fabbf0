#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <algorithm>
#include <cstddef>
#include <vector>

namespace orrelo::quick {

/// A list model for QML views. Each row is one object, which the delegate receives as `modelData`. A row that
/// stays keeps its object and therefore its delegate; changes within a row are signalled by its object. The
/// list owns its rows.
class ListBridge : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")

 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<QObject*>& rows() const { return rows_; }
  /// Takes ownership of the row.
  void insert(std::size_t at, QObject* row);
  void append(QObject* row) { insert(rows_.size(), row); }
  /// Removes the row and deletes its object later, after the delegate that reads it.
  void remove(std::size_t at);

  /// Changes the list to one row per item. A position keeps its row; `set(row, item)` updates it. Rows that
  /// are no longer needed are kept for later, since a list view reads the rows of removed delegates until its
  /// next frame.
  template <class Row, class Items, class Set>
  void assignByPosition(const Items& items, Set set) {
    while (rows_.size() > items.size()) spares_.push_back(take(rows_.size() - 1));
    std::size_t at = 0;
    for (const auto& item : items) {
      const bool exists = at < rows_.size();
      auto* const row = static_cast<Row*>(exists ? rows_[at] : spare());
      auto* const used = row != nullptr ? row : new Row(this);
      set(*used, item);
      if (!exists) append(used);
      ++at;
    }
  }

  /// Changes the list to one row per item, in the order of `items`. Rows of items that were in the list
  /// before are kept; such items must be in the same relative order as before. `isOf(row, item)` returns
  /// whether the row belongs to the item, `make(item)` creates a row.
  template <class Row, class Items, class IsOf, class Make>
  void assign(const Items& items, IsOf isOf, Make make) {
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
  QObject* take(std::size_t at);
  /// An unused row; null if there is none.
  QObject* spare();

  std::vector<QObject*> rows_;
  std::vector<QObject*> spares_;
};

}  // namespace orrelo::quick

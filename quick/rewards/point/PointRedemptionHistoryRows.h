#pragma once

#include "quick/bridge/Conversions.h"
#include "rewards/point/PointRedemptionHistoryViewController.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <cstddef>
#include <optional>
#include <utility>

namespace orrelo::quick {

/// The rows of the history for a QML view. Each row's texts come from the core when a delegate reads them.
class PointRedemptionHistoryRows final : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")

 public:
  PointRedemptionHistoryRows(const PointRedemptionHistoryViewController& history, QObject* parent)
      : QAbstractListModel(parent), history_(history) {}

  /// Announces the rows that the core has appended, and a new unit of the others.
  void update();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  const PointRedemptionHistoryViewCell& cell(int row) const;

  const PointRedemptionHistoryViewController& history_;
  int rowCount_ = 0;
  std::string unit_;
  /// The row that was read last, since a delegate reads its texts one after another.
  mutable std::optional<std::pair<int, PointRedemptionHistoryViewCell>> lastCell_;
};

}  // namespace orrelo::quick

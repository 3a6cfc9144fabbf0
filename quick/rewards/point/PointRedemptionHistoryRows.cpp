#include "quick/rewards/point/PointRedemptionHistoryRows.h"

namespace orrelo::quick {
namespace {

enum Role { date = Qt::UserRole, title, body, amount, unit, amountColor, label };

}  // namespace

void PointRedemptionHistoryRows::update() {
  const auto state = history_.state();  // a copy, since each new row makes a delegate
  if (state.unit != unit_) {
    unit_ = state.unit;
    lastCell_.reset();
    if (rowCount_ > 0) Q_EMIT dataChanged(index(0), index(rowCount_ - 1), {unit, label});
  }
  const auto count = static_cast<int>(state.rowCount);
  if (count <= rowCount_) return;
  beginInsertRows({}, rowCount_, count - 1);
  rowCount_ = count;
  endInsertRows();
}

int PointRedemptionHistoryRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rowCount_;
}

const PointRedemptionHistoryViewCell& PointRedemptionHistoryRows::cell(int row) const {
  if (!lastCell_ || lastCell_->first != row) lastCell_ = {row, history_.cell(static_cast<std::size_t>(row))};
  return lastCell_->second;
}

QVariant PointRedemptionHistoryRows::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto& shown = cell(index.row());
  switch (role) {
    case date:
      return toQt(shown.date);
    case title:
      return toQt(shown.title);
    case body:
      return toQt(shown.body);
    case amount:
      return toQt(shown.amount);
    case unit:
      return toQt(shown.unit);
    case amountColor:
      return toQt(shown.amountColor);
    case label:
      return toQt(shown.accessibilityLabel);
    default:
      return {};
  }
}

QHash<int, QByteArray> PointRedemptionHistoryRows::roleNames() const {
  return {{date, "date"},     {title, "title"}, {body, "body"},
          {amount, "amount"}, {unit, "unit"},   {amountColor, "amountColor"},
          {label, "label"}};
}

}  // namespace orrelo::quick

#include "moc_PointRedemptionHistoryRows.cpp"

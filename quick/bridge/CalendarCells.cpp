#include "bridge/CalendarCells.h"

#include "bridge/Conversions.h"

#include <array>
#include <utility>

namespace orrelo::quick {
namespace {

using Cell = CampaignCalendarViewCell;

struct Role {
  const char* name;
  QVariant (*read)(const Cell&);
};

// What stands under a day is read on the day's fill.
QColor bottomColor(const Cell& cell) {
  const auto fill = toQt(cell.backgroundColor);
  return fill.alpha() == 0 ? QColor(0x3d, 0x3e, 0x3f) : textColorOn(fill);
}

constexpr std::array<Role, 10> roles{{
    {"day", [](const Cell& cell) -> QVariant { return toQt(cell.day); }},
    {"dayColor", [](const Cell& cell) -> QVariant { return toQt(cell.dayColor); }},
    {"bottomText", [](const Cell& cell) -> QVariant { return toQt(cell.bottomText); }},
    {"bottomColor", [](const Cell& cell) -> QVariant { return bottomColor(cell); }},
    {"backgroundColor", [](const Cell& cell) -> QVariant { return toQt(cell.backgroundColor); }},
    {"borderWidth", [](const Cell& cell) -> QVariant { return cell.borderWidth; }},
    {"borderColor", [](const Cell& cell) -> QVariant { return toQt(cell.borderColor); }},
    {"hasIcon", [](const Cell& cell) -> QVariant { return cell.hasIcon; }},
    {"iconUrl", [](const Cell& cell) -> QVariant { return toQt(cell.iconUrl); }},
    {"accessibilityLabel", [](const Cell& cell) -> QVariant { return toQt(cell.accessibilityLabel); }},
}};

}  // namespace

void CalendarCells::set(std::vector<CampaignCalendarViewCell> cells) {
  if (cells == cells_) return;
  beginResetModel();
  cells_ = std::move(cells);
  endResetModel();
}

int CalendarCells::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(cells_.size());
}

QVariant CalendarCells::data(const QModelIndex& index, int role) const {
  const auto number = static_cast<std::size_t>(role - Qt::UserRole);
  if (!checkIndex(index, CheckIndexOption::IndexIsValid) || number >= roles.size()) return {};
  return roles[number].read(cells_[static_cast<std::size_t>(index.row())]);
}

QHash<int, QByteArray> CalendarCells::roleNames() const {
  QHash<int, QByteArray> names;
  for (std::size_t i = 0; i < roles.size(); ++i) names[Qt::UserRole + static_cast<int>(i)] = roles[i].name;
  return names;
}

}  // namespace orrelo::quick

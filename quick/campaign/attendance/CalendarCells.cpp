#include "quick/campaign/attendance/CalendarCells.h"

#include "quick/bridge/Conversions.h"

#include <array>
#include <utility>

namespace orrelo::quick {
namespace {

using Cell = CampaignCalendarViewCell;

struct Role {
  const char* name;
  QVariant (*read)(const Cell&);
};

// On a fill the day and what stands under it are white, unless that could not be read.
QColor onFill(const Cell& cell, const QColor& otherwise) {
  const auto fill = toQt(cell.backgroundColor);
  return fill.alpha() == 0 ? otherwise : textColorOn(fill);
}

constexpr std::array<Role, 9> roles{{
    {"day", [](const Cell& cell) -> QVariant { return toQt(cell.day); }},
    {"dayColor", [](const Cell& cell) -> QVariant { return onFill(cell, toQt(cell.dayColor)); }},
    {"bottomText", [](const Cell& cell) -> QVariant { return toQt(cell.bottomText); }},
    {"bottomColor", [](const Cell& cell) -> QVariant { return onFill(cell, plainTextColor()); }},
    {"backgroundColor", [](const Cell& cell) -> QVariant { return toQt(cell.backgroundColor); }},
    {"borderWidth", [](const Cell& cell) -> QVariant { return cell.borderWidth; }},
    {"borderColor", [](const Cell& cell) -> QVariant { return toQt(cell.borderColor); }},
    {"hasIcon", [](const Cell& cell) -> QVariant { return cell.hasIcon; }},
    {"accessibilityLabel", [](const Cell& cell) -> QVariant { return toQt(cell.accessibilityLabel); }},
}};

constexpr int iconRole = Qt::UserRole + static_cast<int>(roles.size());

}  // namespace

void CalendarCells::set(std::vector<CampaignCalendarViewCell> cells) {
  if (cells == cells_) return;
  beginResetModel();
  cells_ = std::move(cells);
  for (const auto& cell : cells_) {
    if (cell.iconUrl.empty() || icons_.contains(cell.iconUrl)) continue;
    const auto image = std::make_shared<ImageView>();
    icons_[cell.iconUrl] = new ImageBridge(image, this);
    image->load(cell.iconUrl);
  }
  endResetModel();
}

int CalendarCells::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(cells_.size());
}

QVariant CalendarCells::data(const QModelIndex& index, int role) const {
  if (role == iconRole && checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return QVariant::fromValue(icon(cells_[static_cast<std::size_t>(index.row())]));
  }
  const auto number = static_cast<std::size_t>(role - Qt::UserRole);
  if (!checkIndex(index, CheckIndexOption::IndexIsValid) || number >= roles.size()) return {};
  return roles[number].read(cells_[static_cast<std::size_t>(index.row())]);
}

ImageBridge* CalendarCells::icon(const CampaignCalendarViewCell& cell) const {
  const auto found = icons_.find(cell.iconUrl);
  return found == icons_.end() ? nullptr : found->second;
}

QHash<int, QByteArray> CalendarCells::roleNames() const {
  QHash<int, QByteArray> names;
  for (std::size_t i = 0; i < roles.size(); ++i) names[Qt::UserRole + static_cast<int>(i)] = roles[i].name;
  names[iconRole] = "icon";
  return names;
}

}  // namespace orrelo::quick

#include "quick/host/ScreenLayers.h"

#include "platform/Application.h"
#include "quick/bridge/Bridges.h"

#include <orrelo/Platform.h>

#include <algorithm>

namespace orrelo::quick {

void ScreenLayers::set(const std::vector<std::shared_ptr<ViewController>>& screens, bool wantsAnimation) {
  const bool animated = wantsAnimation && !Platform::current().application->prefersReducedMotion();
  const auto* const formerTop = top();
  const auto isWanted = [&screens](const Layer& layer) {
    return std::find(screens.begin(), screens.end(), layer.bridge->screen()) != screens.end();
  };
  for (std::size_t row = layers_.size(); row-- > 0;) {
    auto& layer = layers_[row];
    if (layer.isLeaving || isWanted(layer)) continue;
    if (animated) {
      layer.isLeaving = true;
      layer.isAnimated = true;
    } else {
      remove(row);
    }
  }
  for (const auto& wanted : screens) {
    const bool isThere = std::any_of(layers_.begin(), layers_.end(), [&wanted](const Layer& layer) {
      return !layer.isLeaving && layer.bridge->screen() == wanted;
    });
    if (!isThere) append(wanted, animated);
  }
  refresh();
  if (top() != formerTop) Q_EMIT topChanged();
}

ScreenBridge* ScreenLayers::top() const {
  const auto found =
      std::find_if(layers_.rbegin(), layers_.rend(), [](const Layer& layer) { return !layer.isLeaving; });
  return found == layers_.rend() ? nullptr : found->bridge;
}

void ScreenLayers::append(const std::shared_ptr<ViewController>& wanted, bool animated) {
  auto* const bridge = makeBridge(wanted, this);
  connect(bridge, &ScreenBridge::presentationChanged, this, &ScreenLayers::presentationChanged);
  const int row = rowCount();
  beginInsertRows({}, row, row);
  layers_.push_back({bridge, animated, !animated});
  endInsertRows();
}

void ScreenLayers::remove(std::size_t row) {
  auto* const bridge = layers_[row].bridge;
  disconnect(bridge, nullptr, this, nullptr);
  beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
  layers_.erase(layers_.begin() + static_cast<std::ptrdiff_t>(row));
  endRemoveRows();
  // After whoever draws it, which goes in the same way.
  bridge->deleteLater();
}

void ScreenLayers::arrived(ScreenBridge* bridge) {
  const auto row = find(bridge);
  if (row < 0) return;
  layers_[static_cast<std::size_t>(row)].hasArrived = true;
  refresh();
}

void ScreenLayers::gone(ScreenBridge* bridge) {
  const auto row = find(bridge);
  if (row >= 0 && layers_[static_cast<std::size_t>(row)].isLeaving) remove(static_cast<std::size_t>(row));
}

std::ptrdiff_t ScreenLayers::find(const ScreenBridge* bridge) const {
  const auto found = std::find_if(layers_.begin(), layers_.end(),
                                  [bridge](const Layer& layer) { return layer.bridge == bridge; });
  return found == layers_.end() ? -1 : found - layers_.begin();
}

bool ScreenLayers::isCoveredAt(std::size_t row) const {
  return std::any_of(
      layers_.begin() + static_cast<std::ptrdiff_t>(row) + 1, layers_.end(),
      [](const Layer& above) { return above.hasArrived && !above.isLeaving && !above.bridge->isOver(); });
}

void ScreenLayers::refresh() {
  if (!layers_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

int ScreenLayers::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(layers_.size());
}

QVariant ScreenLayers::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const auto& layer = layers_[row];
  switch (role) {
    case screen:
      return QVariant::fromValue(layer.bridge);
    case isAnimated:
      return layer.isAnimated;
    case isLeaving:
      return layer.isLeaving;
    case isTop:
      return layer.bridge == top();
    case isCovered:
      return isCoveredAt(row);
    default:
      return {};
  }
}

QHash<int, QByteArray> ScreenLayers::roleNames() const {
  return {{screen, "screen"},
          {isAnimated, "isAnimated"},
          {isLeaving, "isLeaving"},
          {isTop, "isTop"},
          {isCovered, "isCovered"}};
}

}  // namespace orrelo::quick

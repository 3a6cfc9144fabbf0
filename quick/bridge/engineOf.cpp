#include "quick/bridge/engineOf.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace orrelo::quick {

QQmlEngine& engineOf(const QQuickItem& item) {
  for (const auto* above = &item; above != nullptr; above = above->parentItem()) {
    if (auto* const engine = qmlEngine(above)) return *engine;
  }
  if (item.window() != nullptr) {
    if (auto* const engine = qmlEngine(item.window())) return *engine;
  }
  static auto* const own = new QQmlEngine;
  return *own;
}

}  // namespace orrelo::quick

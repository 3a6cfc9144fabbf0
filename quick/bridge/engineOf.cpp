#include "quick/bridge/engineOf.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <utility>

namespace orrelo::quick {

QQmlEngine& engineOf(const QQuickItem& item) {
  for (const auto* above = &item; above != nullptr; above = above->parentItem()) {
    if (auto* const engine = qmlEngine(above)) return *engine;
  }
  if (item.window() != nullptr) {
    if (auto* const engine = qmlEngine(item.window())) return *engine;
  }
  static QQmlEngine* own = nullptr;
  if (own == nullptr) {
    own = new QQmlEngine;
    // An engine must not outlive the application.
    qAddPostRoutine([] { delete std::exchange(own, nullptr); });
  }
  return *own;
}

}  // namespace orrelo::quick

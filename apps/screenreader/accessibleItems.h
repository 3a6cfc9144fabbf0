#pragma once

#include <QQuickItem>
#include <QString>
#include <functional>

/// Finds the items of a window by the names that assistive technology reads. Call from the main thread.
namespace orrelo::screenreader {

/// Calls `visitor` for the item and its descendants in drawing order, without those that are invisible or
/// fully transparent.
void visitVisible(QQuickItem* item, const std::function<void(QQuickItem*)>& visitor);

/// The accessible name; empty if there is none or `object` is null.
QString nameOf(QObject* object);

/// The topmost visible item with this name in `root`; null if there is none.
QQuickItem* find(QQuickItem* root, const QString& name);

}  // namespace orrelo::screenreader

#pragma once

class QQmlEngine;
class QQuickItem;

namespace orrelo::quick {

/// The engine of the QML file that the item, one of its parents or its window comes from; otherwise an engine
/// of the kit's own, for hosts that build their scene in C++ alone. Never null.
QQmlEngine& engineOf(const QQuickItem& item);

}  // namespace orrelo::quick

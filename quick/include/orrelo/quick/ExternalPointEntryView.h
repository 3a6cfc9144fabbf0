#pragma once

#include <orrelo/Export.h>

class QQuickItem;

namespace orrelo::quick {

/// Makes an entry to the exchange of points in one of the host's items, for hosts that build their layout in
/// C++. In QML the same is the type OrreloExternalPointEntryView of the module Orrelo.
///
///     QQuickItem* entry = orrelo::quick::makeExternalPointEntryView(column);
///     entry->setWidth(column->width());
///
/// The item has an implicit size. It is invisible with an implicit size of 0 unless the service enables the
/// exchange, for which it asks once, when it comes into a window; `Orrelo::initialize` comes before that. The
/// parent, which may be any item, owns it. Returns null if the parent is null, and a line of
/// ORLExplanations says so. GUI thread.
ORRELO_EXPORT QQuickItem* makeExternalPointEntryView(QQuickItem* parent);

}  // namespace orrelo::quick

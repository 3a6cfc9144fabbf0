#pragma once

#include <orrelo/EventValue.h>

#include <QJSValue>

class QJSEngine;

namespace orrelo::quick {

/// The values of an event that is reported in QML: the members of an object; none if it is undefined or null.
/// A member that is undefined or null becomes null, and one that events cannot carry, such as a function or
/// an item, a value of an unknown type. Throws std::invalid_argument if `object` is not a plain object or is
/// nested too deeply, as one is that contains itself.
EventValues eventValues(QJSEngine& engine, const QJSValue& object);

}  // namespace orrelo::quick

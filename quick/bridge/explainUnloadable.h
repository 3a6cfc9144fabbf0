#pragma once

class QQmlComponent;

namespace orrelo::quick {

/// Writes a line of ORLExplanations: the kit's file in this component makes no item, with its errors.
void explainUnloadable(const QQmlComponent& component);

}  // namespace orrelo::quick

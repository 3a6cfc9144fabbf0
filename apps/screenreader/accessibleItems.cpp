#include "accessibleItems.h"

#include <QAccessible>

namespace orrelo::screenreader {

void visitVisible(QQuickItem* item, const std::function<void(QQuickItem*)>& visitor) {
  if (!item->isVisible() || item->opacity() == 0.0) return;
  visitor(item);
  for (auto* child : item->childItems()) visitVisible(child, visitor);
}

QString nameOf(QObject* object) {
  auto* const accessible = object != nullptr ? QAccessible::queryAccessibleInterface(object) : nullptr;
  return accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
}

QQuickItem* find(QQuickItem* root, const QString& name) {
  QQuickItem* found = nullptr;
  visitVisible(root, [&](QQuickItem* item) {
    if (nameOf(item) == name) found = item;
  });
  return found;
}

}  // namespace orrelo::screenreader

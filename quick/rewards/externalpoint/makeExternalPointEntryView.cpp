#include "base/explain.h"
#include "quick/bridge/engineOf.h"
#include "quick/bridge/explainUnloadable.h"

#include <orrelo/quick/ExternalPointEntryView.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QUrl>

namespace orrelo::quick {

QQuickItem* makeExternalPointEntryView(QQuickItem* parent) {
  if (parent == nullptr) {
    explain(
        ExplanationLevel::error,
        "makeExternalPointEntryView was given no parent, and makes no entry: pass the item that it lies in.");
    return nullptr;
  }
  QQmlComponent component(
      &engineOf(*parent),
      QUrl(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/OrreloExternalPointEntryView.qml")));
  auto* const item = qobject_cast<QQuickItem*>(component.create(qmlContext(parent)));
  if (item == nullptr) {
    explainUnloadable(component);
    return nullptr;
  }
  QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
  item->setParent(parent);
  item->setParentItem(parent);
  return item;
}

}  // namespace orrelo::quick

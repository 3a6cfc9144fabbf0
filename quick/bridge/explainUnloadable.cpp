#include "quick/bridge/explainUnloadable.h"

#include "base/explain.h"

#include <QQmlComponent>

namespace orrelo::quick {

void explainUnloadable(const QQmlComponent& component) {
  explain(ExplanationLevel::error, [&] {
    return component.url().fileName().toStdString() +
           " cannot be loaded, and nothing is seen in its place: install the QML modules of Qt that the kit "
           "needs. " +
           component.errorString().simplified().toStdString();
  });
}

}  // namespace orrelo::quick

#include "base/explain.h"
#include "quick/viewkit/WebPageDelegate.h"

#include <orrelo/quick/OrreloWeb.h>

#include <QCoreApplication>
#include <QtWebEngineQuick/qtwebenginequickglobal.h>

namespace orrelo::quick {

void initializeWeb() {
  if (QCoreApplication::instance() != nullptr) {
    explain(ExplanationLevel::error,
            "initializeWeb comes after the application, and web pages stay empty: call it before the "
            "QGuiApplication is created.");
    return;
  }
  QtWebEngineQuick::initialize();
  const QUrl module(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Web/"));
  setWebPageDelegates(module.resolved(QUrl(QStringLiteral("WebPage.qml"))),
                      module.resolved(QUrl(QStringLiteral("ExternalPointExchangePage.qml"))));
}

}  // namespace orrelo::quick

#include "quick/viewkit/WebPageDelegate.h"
#include "quick/web/webLog.h"

#include <orrelo/quick/OrreloWeb.h>

#include <QCoreApplication>
#include <QtWebEngineQuick/qtwebenginequickglobal.h>

namespace orrelo::quick {

void initializeWeb() {
  if (QCoreApplication::instance() != nullptr) {
    qCWarning(webLog) << "initializeWeb() comes after the application: web pages stay empty";
    return;
  }
  QtWebEngineQuick::initialize();
  const QUrl module(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Web/"));
  setWebPageDelegates(module.resolved(QUrl(QStringLiteral("WebPage.qml"))),
                      module.resolved(QUrl(QStringLiteral("ExternalPointExchangePage.qml"))));
}

}  // namespace orrelo::quick

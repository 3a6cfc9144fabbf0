#include "quick/viewkit/WebPageDelegate.h"

#include <orrelo/quick/OrreloWeb.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QtWebEngineQuick/qtwebenginequickglobal.h>

namespace orrelo::quick {
namespace {

Q_LOGGING_CATEGORY(web, "orrelo.web")

}  // namespace

void initializeWeb() {
  if (QCoreApplication::instance() != nullptr) {
    qCWarning(web) << "initializeWeb() comes after the application: web pages stay empty";
    return;
  }
  QtWebEngineQuick::initialize();
  const QUrl module(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Web/"));
  setWebPageDelegates(module.resolved(QUrl(QStringLiteral("WebPage.qml"))),
                      module.resolved(QUrl(QStringLiteral("ExternalPointExchangePage.qml"))));
}

}  // namespace orrelo::quick

// A host with the installed kit's screens and web pages, in the QML file that it is called with.
#include <orrelo/quick/OrreloQuick.h>
#include <orrelo/quick/OrreloWeb.h>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <iostream>

int main(int argc, char** argv) {
  orrelo::quick::initializeWeb();
  const QGuiApplication application(argc, argv);
  QQmlEngine engine;
  const QQmlComponent page(&engine,
                           QUrl(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Web/WebPage.qml")));
  const QQmlComponent host(&engine, QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])));
  std::cout << (page.isReady() ? "web pages" : page.errorString().toStdString()) << "\n"
            << (host.isReady() ? "screens" : host.errorString().toStdString()) << "\n";
  return page.isReady() && host.isReady() ? 0 : 1;
}

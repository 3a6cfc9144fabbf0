// A host application with the kit's screens. --tour FOLDER plays a tour of them, also on machines without a
// display.
#include "Showroom.h"
#include "Tour.h"

#ifdef SHOWROOM_HAS_WEB
#include <orrelo/quick/OrreloWeb.h>
#endif

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <exception>
#include <iostream>
#include <optional>
#include <unistd.h>

namespace {

using namespace orrelo::showroom;

int playTour(Showroom& showroom, QQuickWindow& window, const std::string& folder) {
  try {
    Tour(showroom, window, folder).play();
    std::cout << "All of it on one page: " << folder << "/index.html" << std::endl;
    return 0;
  } catch (const std::exception& exception) {
    const auto picture = folder + "/failed.png";
    window.grabWindow().save(QString::fromStdString(picture));
    std::cerr << "The tour ends: " << exception.what() << "; see " << picture << std::endl;
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
#ifdef SHOWROOM_HAS_WEB
  // The browser engine's sandbox refuses to run as root, as in a container. Going without it is safe here,
  // because only the showroom's own pages are shown.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
  orrelo::quick::initializeWeb();
#endif
  QGuiApplication application(argc, argv);
  application.setApplicationName(QStringLiteral("orrelo-showroom"));
  const auto arguments = application.arguments();
  const bool isTour = arguments.size() == 3 && arguments[1] == QStringLiteral("--tour");
  if (arguments.size() > 1 && !isTour) {
    std::cerr << "orrelo-showroom [--tour FOLDER]\n";
    return 2;
  }
  const QTemporaryDir temporary;
  const auto folder =
      isTour ? temporary.path() : QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  try {
    const auto now = isTour ? std::optional(Tour::moment) : std::nullopt;
    Showroom showroom(folder.toStdString(), now);
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("showroom"), &showroom);
    engine.load(QUrl(QStringLiteral("qrc:/showroom/Main.qml")));
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (window == nullptr) return 1;
    showroom.setWindow(window);
    if (isTour) {
      QTimer::singleShot(0, &application, [&] {
        QCoreApplication::exit(playTour(showroom, *window, arguments[2].toStdString()));
      });
    }
    return QGuiApplication::exec();
  } catch (const std::exception& exception) {
    std::cerr << "orrelo-showroom: " << exception.what() << "\n";
    return 1;
  }
}

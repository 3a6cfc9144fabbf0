// A host application with the kit's screens. --tour FOLDER plays a tour of them, also on machines without a
// display.
#include "Browser.h"
#include "Showroom.h"
#include "Tour.h"
#include "readPayload.h"

#include <orrelo/Orrelo.h>

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <exception>
#include <fstream>
#include <iostream>
#include <optional>

namespace {

using namespace orrelo::showroom;

const QString tourName = QStringLiteral("tour");
const QString notificationName = QStringLiteral("notification");
const QString visitName = QStringLiteral("visit");

void readOptions(const QGuiApplication& application, QCommandLineParser& parser) {
  QCommandLineOption visit(visitName, QStringLiteral("An earlier session of the tour."),
                           QStringLiteral("folder"));
  visit.setFlags(QCommandLineOption::HiddenFromHelp);
  parser.addHelpOption();
  parser.addOptions({{tourName, QStringLiteral("Plays a tour and writes its pictures to this folder."),
                      QStringLiteral("folder")},
                     {notificationName,
                      QStringLiteral("The notification whose tap has started the application: a JSON file."),
                      QStringLiteral("file")},
                     visit});
  parser.process(application);
}

// The tour starts like an application that a tapped notification has started. The user whom the notification
// finds has signed in earlier, in another process with the same data.
std::string prepareTour(const QString& folder) {
  if (QProcess::execute(QCoreApplication::applicationFilePath(), {QStringLiteral("--visit"), folder}) != 0) {
    throw std::runtime_error("the tour's earlier session failed");
  }
  const auto file = folder.toStdString() + "/notification.json";
  std::ofstream(file) << R"({"Orrelo":true,"campaignId":"stamp"})";
  return file;
}

int visit(const QString& folder) {
  const Showroom showroom(folder.toStdString(), Tour::moment);
  orrelo::Orrelo::setUser(orrelo::ORLUser("minji", orrelo::ORLMarketingStatus::optIn));
  return 0;
}

int playTour(Showroom& showroom, QQuickWindow& window, const std::string& folder,
             const orrelo::EventDictionary& notification) {
  try {
    Tour tour(showroom, window, folder);
    showroom.notifications().tap(notification);
    tour.play();
    std::cout << "All of it on one page: " << folder << "/index.html" << std::endl;
    return 0;
  } catch (const std::exception& exception) {
    const auto picture = folder + "/failed.png";
    window.grabWindow().save(QString::fromStdString(picture));
    std::cerr << "The tour ends: " << exception.what() << "; see " << picture << std::endl;
    return 1;
  }
}

// `notification` is that whose tap has started the application.
int run(Showroom& showroom, const QString& tourFolder,
        const std::optional<orrelo::EventDictionary>& notification) {
  QQmlApplicationEngine engine;
  engine.rootContext()->setContextProperty(QStringLiteral("showroom"), &showroom);
  engine.rootContext()->setContextProperty(QStringLiteral("notifications"), &showroom.notifications());
  engine.load(QUrl(QStringLiteral("qrc:/showroom/Main.qml")));
  auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
  if (window == nullptr) return 1;
  if (!tourFolder.isEmpty()) {
    QTimer::singleShot(0, window, [&] {
      QCoreApplication::exit(playTour(showroom, *window, tourFolder.toStdString(), *notification));
    });
  } else if (notification) {
    // The kit opens the page over the window, which must therefore exist.
    showroom.notifications().tap(*notification);
  }
  return QGuiApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  Browser::initialize();
  QGuiApplication application(argc, argv);
  application.setApplicationName(QStringLiteral("orrelo-showroom"));
  QCommandLineParser parser;
  readOptions(application, parser);
  const auto tourFolder = parser.value(tourName);
  const bool isTour = !tourFolder.isEmpty();
  const QTemporaryDir temporary;
  const auto folder =
      isTour ? temporary.path() : QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  try {
    if (parser.isSet(visitName)) return visit(parser.value(visitName));
    const auto file = isTour ? prepareTour(folder) : parser.value(notificationName).toStdString();
    std::optional<orrelo::EventDictionary> notification;
    if (!file.empty()) notification = orrelo::notification::readPayload(file);
    Showroom showroom(folder.toStdString(), isTour ? std::optional(Tour::moment) : std::nullopt);
    return run(showroom, tourFolder, notification);
  } catch (const std::exception& exception) {
    std::cerr << "orrelo-showroom: " << exception.what() << "\n";
    return 1;
  }
}

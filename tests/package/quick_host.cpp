// A host with the installed kit's screens, in the QML file that it is called with, which shows one itself.
#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <filesystem>
#include <iostream>

int main(int argc, char** argv) {
  using namespace orrelo;
  const QGuiApplication application(argc, argv);
  const auto folder = std::filesystem::temp_directory_path() / "packaged-quick-host";
  // Nobody answers at this port.
  Platform::install(quick::platform({.bundleIdentifier = "com.example.packaged-quick-host",
                                     .dataDirectory = folder,
                                     .cacheDirectory = folder,
                                     .developmentService = {"https://127.0.0.1:9", {}}}));
  Orrelo::initialize(ORLConfig("packaged-quick-host"));
  const QQmlApplicationEngine engine(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])));
  auto* const window =
      engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects()[0]);
  const bool isCovered = window != nullptr && window->property("isCovered").toBool();
  const auto user = Platform::current().userDefaults->standard()->text("orrelo_user_id");
  const bool isShown =
      window != nullptr && quick::push(window, Orrelo::getCampaignViewController("unknown"), false);
  const bool isDone = isCovered && isShown && user == "user-1";
  std::cout << (isCovered ? "QML shows a screen, " : "QML shows nothing, ")
            << (isShown ? "C++ another one, " : "C++ nothing, ") << "the user is " << user.value_or("nobody")
            << "\n";
  return isDone ? 0 : 1;
}

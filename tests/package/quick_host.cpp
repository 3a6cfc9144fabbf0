// A host with the installed kit's screens, in the QML file that it is called with.
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
  Platform::install(quick::platform({.bundleIdentifier = "com.example.packaged-quick-host",
                                     .dataDirectory = folder,
                                     .cacheDirectory = folder}));
  const QQmlApplicationEngine engine(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])));
  auto* const window =
      engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects()[0]);
  const bool isShown =
      window != nullptr && quick::push(window, Orrelo::getCampaignViewController("unknown"), false);
  std::cout << (isShown ? "a screen is shown" : "no screen") << "\n";
  return isShown ? 0 : 1;
}

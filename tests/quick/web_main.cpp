#include <orrelo/quick/OrreloWeb.h>

#include <QGuiApplication>
#include <gmock/gmock.h>
#include <unistd.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  // The engine's sandbox refuses to run as root, as in a container.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  orrelo::quick::initializeWeb();
  QGuiApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}

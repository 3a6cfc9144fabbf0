#include <orrelo/Export.h>
#include <orrelo/quick/OrreloWeb.h>

#include <QGuiApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <unistd.h>

// Called by the address sanitizer. The engine deletes objects with a size that differs from the allocated
// one, and the engine and its font library leak; the rest is as in main.cpp.
extern "C" {
ORRELO_EXPORT const char* __lsan_default_suppressions();
ORRELO_EXPORT const char* __asan_default_options();

const char* __lsan_default_suppressions() {
  return "leak:QQuickPixmap::load\nleak:QSGRenderContext::textureForFactory\nleak:libQt6WebEngineCore\n"
         "leak:libfontconfig\n";
}
const char* __asan_default_options() {
  return "fast_unwind_on_malloc=0:new_delete_type_mismatch=0";
}
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  // The engine's sandbox refuses to run as root, as in a container.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  const QTemporaryDir home;  // for files that the engine keeps in its default folder
  qputenv("XDG_DATA_HOME", home.path().toUtf8());
  orrelo::quick::initializeWeb();
  QGuiApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}

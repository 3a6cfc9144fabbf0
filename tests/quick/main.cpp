#include <orrelo/Export.h>

#include <QGuiApplication>
#include <gmock/gmock.h>

// Called by the address sanitizer. Qt Quick's picture cache and the renderer's textures leak as a cycle when
// an engine is destroyed. Stacks are unwound in full since Qt is built without frame pointers.
extern "C" {
ORRELO_EXPORT const char* __lsan_default_suppressions();
ORRELO_EXPORT const char* __asan_default_options();

const char* __lsan_default_suppressions() {
  return "leak:QQuickPixmap::load\nleak:QSGRenderContext::textureForFactory\n";
}
const char* __asan_default_options() {
  return "fast_unwind_on_malloc=0";
}
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}

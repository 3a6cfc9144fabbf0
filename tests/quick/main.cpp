#include <orrelo/Export.h>

#include <QGuiApplication>
#include <gmock/gmock.h>

// Asked by the address sanitizer. Qt Quick's cache of pictures and the renderer's textures for them hold on
// to each other in a ring when an engine goes. Stacks are walked in full, for Qt is built without frame
// pointers.
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

#include "quick/platform/loadInspector.h"

#include "base/explain.h"

#include <QFileInfo>
#include <QLibrary>
#include <QString>
#include <cstdlib>
#include <dlfcn.h>
#include <string_view>

namespace orrelo::quick {
namespace {

QString inspectorFile() {
  Dl_info library{};
  if (::dladdr(reinterpret_cast<const void*>(&loadInspector), &library) == 0) return {};
  const QFileInfo front(QFile::decodeName(library.dli_fname));
  // In a static build this is the program, by the name that it was started with.
  if (!front.isAbsolute()) return {};
  return front.absolutePath() + QStringLiteral("/orrelosdk/liborrelo_inspector.so");
}

}  // namespace

void loadInspector() {
  const char* const wanted = ::secure_getenv("ORRELO_INSPECTOR");
  static bool isLoaded = false;
  if (wanted == nullptr || std::string_view(wanted) != "1" || isLoaded) return;
  const auto file = inspectorFile();
  QLibrary library(file);
  library.setLoadHints(QLibrary::PreventUnloadHint);
  const auto start = file.isEmpty() ? nullptr : library.resolve("orrelo_inspector_start");
  if (start == nullptr) {
    return explain(ExplanationLevel::warning, [&] {
      return "ORRELO_INSPECTOR=1 is set, but the inspector cannot be loaded: " +
             library.errorString().toStdString() +
             ". It is the package liborrelo-inspector1; a static build has none.";
    });
  }
  isLoaded = true;
  start();
  explain(ExplanationLevel::info, "Ctrl+Shift+O opens the inspector in each window.");
}

}  // namespace orrelo::quick

#pragma once

#include "quick/platform/IdleWork.h"
#include "quick/platform/warmUpThreads.h"

#include <cstddef>

class QQmlEngine;
class QQuickWindow;

namespace orrelo::quick {

/// Has Qt load what the first campaign of a process would otherwise wait for: the image plugins, the QML
/// types of the campaign screens, and their fonts. It makes no screen and no request. GUI thread.
class WarmUp final : public QObject {
 public:
  /// The name of the engine's property that is false from the beginning and true at the end.
  static constexpr auto isDone = "_orrelo_isWarmedUp";

  /// Begins after the window's next frame, once for each engine. Ends with the engine. Does nothing without
  /// `warmUpThreads`.
  static void begin(QQmlEngine& engine, QQuickWindow& window);

 private:
  WarmUp(QQmlEngine& engine, WarmUpThreads threads);

  // Each adds its steps, the last of which calls the next function.
  void start();
  void compile(std::size_t index);
  void loadFonts();
  void finish();

  /// Creates the first object of a type, which is then a child of this object.
  QObject* create(const char* name);

  QQmlEngine& engine_;
  const WarmUpThreads threads_;
  IdleWork work_;
};

}  // namespace orrelo::quick

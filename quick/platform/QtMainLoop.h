#pragma once

#include "platform/threads/DelayedTasks.h"

#include <orrelo/MainLoop.h>

#include <QObject>
#include <QTimer>
#include <chrono>

namespace orrelo::quick {

/// Qt's event loop of the thread that makes it.
class QtMainLoop final : public QObject, public MainLoop {
 public:
  QtMainLoop();

  void post(Task task) override;
  void postAfter(std::chrono::microseconds delay, Task task) override;
  bool isCurrent() const override;

 private:
  void runDue();
  void arm();

  // The loop's thread alone touches these.
  DelayedTasks<Task> delayed_;
  QTimer timer_;
};

}  // namespace orrelo::quick

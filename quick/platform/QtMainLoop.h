#pragma once

#include "platform/threads/DelayedTasks.h"

#include <orrelo/MainLoop.h>

#include <QObject>
#include <QTimer>
#include <chrono>

namespace orrelo::quick {

/// Qt's event loop on the thread that creates this object.
class QtMainLoop final : public QObject, public MainLoop {
 public:
  QtMainLoop();

  void post(Task task) override;
  void postAfter(std::chrono::microseconds delay, Task task) override;
  bool isCurrent() const override;

 private:
  void runDue();
  void arm();

  // Accessed only on the loop's thread.
  DelayedTasks<Task> delayed_;
  QTimer timer_;
};

}  // namespace orrelo::quick

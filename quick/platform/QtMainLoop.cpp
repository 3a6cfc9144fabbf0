#include "quick/platform/QtMainLoop.h"

#include <QThread>
#include <algorithm>
#include <utility>
#include <vector>

namespace orrelo::quick {

QtMainLoop::QtMainLoop() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, this, [this] { runDue(); });
}

void QtMainLoop::post(Task task) {
  QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
}

void QtMainLoop::postAfter(std::chrono::microseconds delay, Task task) {
  if (delay <= delay.zero()) return post(std::move(task));
  const auto due = DelayedTasks<Task>::after(delay);
  post([this, due, task = std::move(task)]() mutable {
    if (delayed_.add(due, std::move(task))) arm();
  });
}

bool QtMainLoop::isCurrent() const {
  return QThread::currentThread() == thread();
}

void QtMainLoop::runDue() {
  std::vector<Task> due;  // collected first, since a task may add others
  delayed_.takeDue([&due](Task task) { due.push_back(std::move(task)); });
  arm();
  for (const auto& task : due) task();
}

void QtMainLoop::arm() {
  if (delayed_.empty()) return;
  constexpr std::chrono::milliseconds soonest{0};
  constexpr std::chrono::milliseconds longest = std::chrono::hours(24);
  const auto now = std::chrono::steady_clock::now();
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(delayed_.firstDue() - now);
  timer_.start(std::clamp(left, soonest, longest));
}

}  // namespace orrelo::quick

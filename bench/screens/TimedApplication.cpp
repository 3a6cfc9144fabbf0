#include "screens/TimedApplication.h"

#include <QThread>
#include <algorithm>
#include <utility>

namespace orrelo::bench {

TimedApplication::TimedApplication(int& argumentCount, char** arguments)
    : QGuiApplication(argumentCount, arguments) {}

bool TimedApplication::notify(QObject* receiver, QEvent* event) {
  if (QThread::currentThread() != thread() || depth_ > 0) return QGuiApplication::notify(receiver, event);
  const auto start = std::chrono::steady_clock::now();
  ++depth_;
  const bool isHandled = QGuiApplication::notify(receiver, event);
  --depth_;
  longest_ = std::max(longest_, std::chrono::steady_clock::now() - start);
  return isHandled;
}

double TimedApplication::takeLongestTask() {
  return std::chrono::duration<double, std::milli>(std::exchange(longest_, {})).count();
}

}  // namespace orrelo::bench

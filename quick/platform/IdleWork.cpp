#include "quick/platform/IdleWork.h"

#include <QEvent>
#include <QGuiApplication>
#include <utility>

namespace orrelo::quick {
namespace {

bool isHostsWork(QEvent::Type type) {
  switch (type) {
    case QEvent::UpdateRequest:  // a window's next frame
    case QEvent::Expose:
    case QEvent::Resize:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Wheel:
      return true;
    default:
      return false;
  }
}

}  // namespace

IdleWork::IdleWork() {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &IdleWork::turn);
  qGuiApp->installEventFilter(this);
}

void IdleWork::add(Step step) {
  steps_.push_back(std::move(step));
  if (!timer_.isActive()) timer_.start(wasBusy_ ? rest : pause);
}

void IdleWork::turn() {
  if (steps_.empty()) return;
  if (std::exchange(wasBusy_, false)) return timer_.start(rest);
  timer_.start(pause);
  const auto step = std::move(steps_.front());
  steps_.pop_front();
  step();
}

bool IdleWork::eventFilter(QObject*, QEvent* event) {
  if (isHostsWork(event->type())) wasBusy_ = true;
  return false;
}

}  // namespace orrelo::quick

#include "FrameClock.h"

#include <QEventLoop>
#include <QTimer>

namespace orrelo::showroom {

FrameClock::FrameClock() {
  install();
  endless_.setDuration(1'000);
  endless_.setLoopCount(-1);
  endless_.start();
}

FrameClock::~FrameClock() {
  endless_.stop();
  uninstall();
}

void FrameClock::next() {
  constexpr int frame = 16;
  QEventLoop loop;
  QTimer::singleShot(frame, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
  elapsed_ += frame;
  advance();
}

}  // namespace orrelo::showroom

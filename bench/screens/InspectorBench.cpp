// The processor time that the open inspector takes beside an idle page, which takes almost none.
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"

#include <QQuickItem>
#include <QTest>
#include <ctime>

namespace orrelo::bench {
namespace {

constexpr std::chrono::seconds period{10};

void toggle(QQuickWindow& window) {
  QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
}

double cpuSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// The share of a core that the process takes while its event loop runs, in percent.
double shareWhileRunning() {
  QEventLoop loop;
  const auto run = [&loop](std::chrono::milliseconds time) {
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
  };
  run(std::chrono::seconds(1));  // until nothing moves
  const double start = cpuSeconds();
  run(period);
  return (cpuSeconds() - start) * 100 / static_cast<double>(period.count());
}

std::vector<double> measure() {
  auto& stage = Stage::shared();
  const double idle = shareWhileRunning();
  const auto children = stage.window().contentItem()->childItems().size();
  toggle(stage.window());
  if (stage.window().contentItem()->childItems().size() == children) std::abort();  // it was not loaded
  const double open = shareWhileRunning();
  toggle(stage.window());
  return {open - idle, idle};
}

}  // namespace

void addInspector() {
  add({{"the inspector open beside an idle page", "% of a core", 3}, {"the idle page", "% of a core"}},
      &measure);
}

}  // namespace orrelo::bench

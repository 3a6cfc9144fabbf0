// Compares a wheel of fortune that spins on its page with a plain picture of its size that turns alone.
#include "ModularPage.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QSignalSpy>
#include <algorithm>
#include <ctime>
#include <optional>
#include <utility>

namespace orrelo::bench {
namespace {

// The processor time of the whole process.
double cpuSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Records the processor time that the process spends on each frame of a window, in seconds.
class FrameTimes {
 public:
  explicit FrameTimes(QQuickWindow& window)
      : counting_(QObject::connect(&window, &QQuickWindow::frameSwapped, [this] {
          const double now = cpuSeconds();
          samples_.push_back(now - std::exchange(last_, now));
        })) {}
  ~FrameTimes() { QObject::disconnect(counting_); }
  FrameTimes(const FrameTimes&) = delete;
  FrameTimes& operator=(const FrameTimes&) = delete;

  double median() { return quantile(samples_, 0.5); }

 private:
  double last_ = cpuSeconds();
  std::vector<double> samples_;
  const QMetaObject::Connection counting_;
};

// Finds the item that turns; null if there is none yet.
QQuickItem* wheelIn(const QQuickItem& item) {
  constexpr int wheelPart = 0;  // RoulettePart::Wheel, which is not exported
  for (auto* const child : item.childItems()) {
    if (child->inherits("orrelo::quick::RoulettePart") && child->property("part").toInt() == wheelPart)
      return child;
    if (auto* const wheel = wheelIn(*child)) return wheel;
  }
  return nullptr;
}

struct Spin {
  double frameTime = 0.0;
  double paints = 0.0;
};

Spin spinWheel() {
  auto& stage = Stage::shared();
  auto page = modularPage({"roulette"});
  auto& answers = stage.service().answers;
  answers["/done"] = {200, page};
  constexpr std::string_view idle = R"("state":"idle")";
  page.replace(page.find(idle), idle.size(), R"("state":"running")");
  answers["/campaigns/wheel"] = {200, test::campaignReply(page)};

  const auto spinsBefore = stage.service().timesAsked("/done");
  QQuickItem* wheel = nullptr;
  std::optional<QSignalSpy> paints;
  const auto search = QObject::connect(&stage.window(), &QQuickWindow::beforeSynchronizing, [&] {
    if (wheel == nullptr) wheel = wheelIn(*stage.window().contentItem());
    if (wheel != nullptr && !paints) paints.emplace(wheel, SIGNAL(painted()));
  });
  stage.open("wheel");
  runUntil([&] { return wheel != nullptr && wheel->rotation() != 0.0; });
  FrameTimes times(stage.window());
  runUntil([&] { return stage.service().timesAsked("/done") > spinsBefore; });
  QObject::disconnect(search);
  const auto count = static_cast<double>(paints->count());
  stage.close();
  return {times.median(), count};
}

// The data URL of a picture with transparent corners, like a wheel's.
QByteArray pictureUrl(int side) {
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setBrush(Qt::darkCyan);
  painter.drawEllipse(picture.rect());
  painter.end();
  QBuffer file;
  picture.save(&file, "PNG");
  return "data:image/png;base64," + file.data().toBase64();
}

double spinPicture() {
  QQmlApplicationEngine engine;
  engine.loadData(QByteArray("import QtQuick\nWindow { ") + windowSize + R"(; visible: true
    Image {
      width: 280; height: 280; anchors.centerIn: parent; source: ")" +
                  pictureUrl(280) + R"("
      NumberAnimation on rotation {
        from: 0; to: 3000; duration: 4000
        easing { type: Easing.BezierSpline; bezierCurve: [0.42, 0, 0.58, 1, 1, 1] }
      }
    }
  })");
  auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
  if (window == nullptr) std::abort();
  const auto* const picture = window->contentItem()->childItems().value(0);
  runUntil([&] { return picture->rotation() != 0.0; });
  FrameTimes times(*window);
  runUntil([&] { return picture->rotation() == 3000.0; });
  return times.median();
}

// Measures both in one process, one after the other. scripts/bench repeats the pair and takes the median of
// the ratios.
std::vector<double> measure() {
  const auto wheel = spinWheel();
  return {wheel.paints, wheel.frameTime / spinPicture()};
}

}  // namespace

void addWheel() {
  add({{"wheel: paints for a whole spin", "", 1},
       {"wheel: CPU of a turning frame, against a plain picture", "times", 1.2}},
      measure);
}

}  // namespace orrelo::bench

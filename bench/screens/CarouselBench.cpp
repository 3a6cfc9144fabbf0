// Measures the frames of a carousel of messages that a pointer swipes.
#include "inappmessage/InAppMessageViewController.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"

#include <orrelo/Orrelo.h>

#include <QBuffer>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QQuickItem>
#include <algorithm>
#include <ctime>
#include <utility>

namespace orrelo::bench {
namespace {

constexpr int swipeCount = 10;
constexpr int pageCount = 3;
constexpr auto name = "carousel: time of a frame on the main thread, 99th percentile of ten swipes";

// The processor time of the main thread, on which the software renderer draws.
double threadMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

// A picture that does not compress to a plain colour, like a photograph.
std::string bannerFile(int number) {
  QImage image(640, 640, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      image.setPixel(x, y, qRgb((x * number) % 256, (y * 3) % 256, (x * y / 64) % 256));
    }
  }
  QBuffer file;
  image.save(&file, "PNG");
  return file.data().toStdString();
}

const QQuickItem* itemNamed(const QQuickItem& item, const QString& objectName) {
  if (item.objectName() == objectName) return &item;
  for (const auto* const child : item.childItems()) {
    if (const auto* const found = itemNamed(*child, objectName)) return found;
  }
  return nullptr;
}

void answerBanners(test::Service& service) {
  std::string items;
  for (int i = 1; i <= pageCount; ++i) {
    const auto number = std::to_string(i);
    items += (i > 1 ? "," : "") + (R"({"campaign_id":"c-)" + number) +
             R"(","image_url":"https://img.example/banner-)" + number + R"(.png"})";
    service.answers["/banner-" + number + ".png"] = {200, bannerFile(i)};
  }
  service.answers["/in-app-message/banner"] = {200, R"({"type":"banner","items":[)" + items + "]}"};
}

/// Moves a pressed pointer over the window, a step a frame.
class Pointer {
 public:
  explicit Pointer(QQuickWindow& window) : window_(window) {}

  void swipe(QPointF from, QPointF by) {
    constexpr int steps = 8;
    send(QEvent::MouseButtonPress, from);
    for (int step = 1; step <= steps; ++step) {
      const auto before = frames_;
      send(QEvent::MouseMove, from + by * step / steps);
      window_.update();
      runUntil([&] { return frames_ > before; });
    }
    send(QEvent::MouseButtonRelease, from + by);
  }
  /// The main thread's milliseconds for each frame so far.
  std::vector<double> times;

 private:
  void send(QEvent::Type type, QPointF at) {
    const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, at, window_.mapToGlobal(at.toPoint()),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
    event.setTimestamp(timestamp_ += 16);
    QCoreApplication::sendEvent(&window_, &event);
  }

  QQuickWindow& window_;
  quint64 timestamp_ = 1;
  std::size_t frames_ = 0;
  double last_ = threadMilliseconds();
  const QObject context_;
  const QMetaObject::Connection counting_ =
      QObject::connect(&window_, &QQuickWindow::frameSwapped, &context_, [this] {
        ++frames_;
        const double now = threadMilliseconds();
        times.push_back(now - std::exchange(last_, now));
      });
};

std::vector<double> measure() {
  auto& stage = Stage::shared();
  answerBanners(stage.service());
  Orrelo::showInAppMessage(stage.host());
  const auto screen = [&stage] {
    return std::dynamic_pointer_cast<InAppMessageViewController>(stage.host()->presentedViewController());
  };
  const QQuickItem* list = nullptr;
  runUntil([&] {
    list = itemNamed(*stage.window().contentItem(), QStringLiteral("imageCollectionView"));
    return screen() && list != nullptr &&
           std::all_of(screen()->cells.begin(), screen()->cells.end(),
                       [](const auto& cell) { return cell->imageView->state.value().image != nullptr; });
  });
  const QDeadlineTimer arrival(500);
  runUntil([&arrival] { return arrival.hasExpired(); });

  Pointer pointer(stage.window());
  const QPointF middle(195, 422);
  int turns = 0;
  for (int i = 0; i < swipeCount; ++i) {
    const auto before = screen()->state.value().currentPage;
    pointer.swipe(middle, {before + 1 < pageCount && i % 4 < 2 ? -220.0 : 220.0, 0.0});
    runUntil([&] { return !list->property("moving").toBool(); });
    if (screen()->state.value().currentPage != before) ++turns;
  }
  if (turns < swipeCount / 2) std::abort();  // the swipes have not moved it
  auto times = std::move(pointer.times);
  stage.close();
  return {quantile(times, 0.99)};
}

}  // namespace

void addCarousel() {
  add({{name, "ms", 16.7}}, measure);
}

}  // namespace orrelo::bench

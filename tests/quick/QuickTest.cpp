#include "QuickTest.h"

#include "accessibleItems.h"

#include <orrelo/platform/Clock.h>
#include <orrelo/platform/WorkerPool.h>

#include <QAccessible>
#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QStyleHints>
#include <QTest>
#include <algorithm>
#include <cstdlib>

namespace orrelo::test {
namespace {

using screenreader::nameOf;
using screenreader::visitVisible;

/// A fixed date, so that pictures are comparable.
class StillCalendar final : public Clock {
 public:
  Date now() const override { return Date::fromSeconds(1794970800); }
  std::chrono::microseconds steady() const override {
    return std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
  }
};

/// Runs all work on the main thread, in the same order in every run.
class LoopWorkers final : public WorkerPool {
 public:
  explicit LoopWorkers(std::shared_ptr<MainLoop> loop) : loop_(std::move(loop)) {}
  void post(QualityOfService, Task task) override { loop_->post(std::move(task)); }
  void postAfter(QualityOfService, std::chrono::microseconds delay, Task task) override {
    loop_->postAfter(delay, std::move(task));
  }

 private:
  std::shared_ptr<MainLoop> loop_;
};

bool isDrawnBy(const QQuickItem* item, const char* file) {
  return QLatin1String(item->metaObject()->className()).startsWith(QLatin1String(file) + "_QML");
}

/// Returns whether a screen is on its way in or out.
bool isMoving(const QQuickItem* item) {
  if (isDrawnBy(item, "ScreenLayer")) {
    if (item->property("isLeaving").toBool() || item->property("presence").toDouble() < 1.0) return true;
  }
  const auto children = item->childItems();
  return std::any_of(children.begin(), children.end(), isMoving);
}

bool isText(const QQuickItem* item) {
  return item->inherits("QQuickText");
}

/// Checks that the text fits into its item.
void expectWholeText(const QQuickItem* text) {
  const auto number = [text](const char* property) { return text->property(property).toDouble(); };
  // A bar of fixed height may elide its title.
  EXPECT_TRUE(!text->property("truncated").toBool() || isDrawnBy(text->parentItem(), "ModalTopBar"));
  EXPECT_LE(number("contentWidth") + number("leftPadding") + number("rightPadding"), text->width() + 1.0);
  EXPECT_LE(number("contentHeight") + number("topPadding") + number("bottomPadding"), text->height() + 1.0);
}

/// Toasts and tooltips may overlap other items.
bool liesOverOthers(const QQuickItem* item) {
  for (; item != nullptr; item = item->parentItem()) {
    if (isDrawnBy(item, "ToastLayer") || isDrawnBy(item, "TooltipView")) return true;
  }
  return false;
}

void expectWithinAllAround(const QQuickItem* item) {
  const bool isOver = liesOverOthers(item);
  QRectF rect(0, 0, item->width(), item->height());
  for (const auto* around = item->parentItem(); around != nullptr; around = around->parentItem()) {
    rect = item->mapRectToItem(around, rect);
    item = around;
    const bool isWindow = around->parentItem() == nullptr;
    if (around->size().isEmpty() || (isOver && !isWindow)) continue;  // it only positions its children
    constexpr double tolerance = 0.6;
    // The content of a list does not begin at 0 while the sizes of some rows are estimates.
    const auto* const scroll = around->parentItem();
    const bool isContent = scroll != nullptr && scroll->inherits("QQuickFlickable");
    const QPointF origin(isContent ? scroll->property("originX").toDouble() : 0.0,
                         isContent ? scroll->property("originY").toDouble() : 0.0);
    const QRectF place =
        QRectF(origin, around->size()).adjusted(-tolerance, -tolerance, tolerance, tolerance);
    const bool fitsAcross = rect.left() >= place.left() && rect.right() <= place.right();
    if (around->inherits("QQuickFlickable")) rect = QRectF({0, 0}, around->size());  // it scrolls
    const bool fitsDown = rect.top() >= place.top() && rect.bottom() <= place.bottom();
    EXPECT_TRUE(fitsAcross && fitsDown)
        << rect.left() << ", " << rect.top() << " to " << rect.right() << ", " << rect.bottom() << " in the "
        << around->width() << " by " << around->height() << " of " << around->metaObject()->className();
    if (!fitsAcross || !fitsDown) return;
  }
}

/// The part of the item that its clipping parents leave visible.
QRectF shownRect(const QQuickItem* item) {
  auto rect = WindowTest::sceneRect(item);
  for (const auto* around = item->parentItem(); around != nullptr; around = around->parentItem()) {
    if (around->clip()) rect &= WindowTest::sceneRect(around);
  }
  return rect;
}

}  // namespace

WindowTest::WindowTest() {
  QAccessible::setActive(true);
  QGuiApplication::styleHints()->setCursorFlashTime(0);  // it would blink by real time
}

WindowTest::~WindowTest() = default;

QuickTest::QuickTest(const std::function<void(Platform&)>& change) {
  auto platform = quick::platform({.bundleIdentifier = "com.example.shop",
                                   .dataDirectory = folder_.path(),
                                   .cacheDirectory = folder_.path()});
  if (change) change(platform);
  service_ = std::make_shared<Service>(platform.mainLoop);
  service_->answers["/gift.png"] = {200, picture({60, 60}, Qt::transparent)};
  service_->answers["/result.png"] = {200, picture({700, 400}, QColor("#fff1d6"))};
  platform.urlSession = service_;
  platform.clock = std::make_shared<StillCalendar>();
  platform.workers = std::make_shared<LoopWorkers>(platform.mainLoop);
  Platform::install(std::move(platform));
  Orrelo::initialize(ORLConfig("shop"));
  Orrelo::setUser(ORLUser("u-1"));
  open({390, 844});
}

void WindowTest::open(QSize size, double textScale) {
  engine_ = std::make_unique<QQmlApplicationEngine>();
  QObject::connect(engine_.get(), &QQmlEngine::warnings, [](const QList<QQmlError>& faults) {
    for (const auto& fault : faults) ADD_FAILURE() << fault.toString().toStdString();
  });
  engine_->setInitialProperties(
      {{"width", size.width()}, {"height", size.height()}, {"textScale", textScale}});
  engine_->loadData(R"(
    import QtQuick
    import Orrelo
    Window {
      id: root
      property real textScale
      property alias pushesScreens: host.pushesScreens
      visible: true
      OrreloHost {
        id: host
        anchors.fill: parent
        textScale: root.textScale
        Text {
          anchors.centerIn: parent
          text: "host"
          activeFocusOnTab: true
          Accessible.role: Accessible.Button
          Accessible.name: "host"
        }
      }
    })");
  window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().value(0));
  ASSERT_NE(window_, nullptr);
  window_->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window_));
}

bool WindowTest::waitFor(const std::function<bool()>& holds) {
  return QTest::qWaitFor(holds, 20'000);
}

void WindowTest::settle() {
  std::vector<QRectF> places;
  QElapsedTimer still;
  still.start();
  static_cast<void>(waitFor([&] {
    std::vector<QRectF> now;
    visitVisible(window_->contentItem(),
                 [&](QQuickItem* item) { now.emplace_back(item->position(), item->size()); });
    if (now != places || isMoving(window_->contentItem())) still.restart();
    places = std::move(now);
    return still.elapsed() >= 100;
  }));
}

QImage WindowTest::grab(const QString& name) {
  settle();
  const QDir folder(QStringLiteral(ORRELO_PICTURES));
  folder.mkpath(QStringLiteral("."));
  auto image = window_->grabWindow();
  image.save(folder.filePath(name + QStringLiteral(".png")));
  return image;
}

QQuickItem* WindowTest::named(const QString& name) const {
  return screenreader::find(window_->contentItem(), name);
}

int WindowTest::count(const QImage& picture, const QColor& color) {
  const auto isNear = [](int a, int b) { return std::abs(a - b) <= 8; };
  int found = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const auto pixel = picture.pixelColor(x, y);
      found += isNear(pixel.red(), color.red()) && isNear(pixel.green(), color.green()) &&
               isNear(pixel.blue(), color.blue());
    }
  }
  return found;
}

void WindowTest::click(const QString& name) {
  auto* const item = named(name);
  ASSERT_NE(item, nullptr) << name.toStdString();
  const auto middle = item->mapToScene({item->width() / 2, item->height() / 2});
  QTest::mouseClick(window_, Qt::LeftButton, {}, middle.toPoint());
}

QString WindowTest::focusName() const {
  return nameOf(window_->activeFocusItem());
}

QStringList WindowTest::names() const {
  QStringList found;
  visitVisible(window_->contentItem(), [&](QQuickItem* item) {
    if (const auto name = nameOf(item); !name.isEmpty()) found.push_back(name);
  });
  return found;
}

std::string WindowTest::picture(QSize size, const QColor& ground) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(ground);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = size.height() * 0.6;
  const QRectF box((size.width() - side) / 2, (size.height() - side) / 2, side, side);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor("#e8505b"));
  painter.drawRoundedRect(box, side * 0.08, side * 0.08);
  painter.fillRect(QRectF(box.center().x() - side * 0.08, box.top(), side * 0.16, side), QColor("#ffffff"));
  painter.fillRect(QRectF(box.left(), box.top() + side * 0.25, side, side * 0.14), QColor("#ffffff"));
  painter.end();
  QBuffer file;
  image.save(&file, "PNG");
  return file.data().toStdString();
}

std::vector<QQuickItem*> WindowTest::drawnBy(const char* file) const {
  std::vector<QQuickItem*> found;
  visitVisible(window_->contentItem(), [&](QQuickItem* item) {
    if (isDrawnBy(item, file)) found.push_back(item);
  });
  std::sort(found.begin(), found.end(), [](const QQuickItem* one, const QQuickItem* other) {
    return sceneRect(one).top() < sceneRect(other).top();
  });
  return found;
}

void WindowTest::expectNothingCut() {
  settle();
  std::vector<const QQuickItem*> texts;
  visitVisible(window_->contentItem(), [&](QQuickItem* item) {
    const auto name = nameOf(item);
    if ((!isText(item) && name.isEmpty()) || name == QLatin1String("host"))
      return;  // beneath the kit's screens
    const testing::ScopedTrace trace(
        __FILE__, __LINE__, name.toStdString() + ", " + item->property("text").toString().toStdString());
    expectWithinAllAround(item);
    if (!isText(item)) return;
    expectWholeText(item);
    if (liesOverOthers(item)) return;
    for (const auto* const other : texts) {
      const auto shared = shownRect(item) & shownRect(other);
      EXPECT_FALSE(shared.width() > 1.0 && shared.height() > 1.0)
          << "over " << other->property("text").toString().toStdString();
    }
    texts.push_back(item);
  });
  EXPECT_FALSE(texts.empty());
}

}  // namespace orrelo::test

#include "QuickTest.h"
#include "inappmessage/InAppMessageViewController.h"
#include "platform/posix/PosixApplication.h"

#include <QAccessible>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>

namespace orrelo::test {
namespace {

const QString skip = QStringLiteral("오늘 하루 그만 보기");
const QString cross = QStringLiteral("배너 닫기");
const QString confirm = QStringLiteral("닫기");

QString page(int number, int count = 3) {
  if (count == 1) return QStringLiteral("이벤트 배너");
  return QStringLiteral("이벤트 배너, %1개 중 %2번째").arg(count).arg(number);
}

class InAppMessageTest : public QuickTest {
 protected:
  InAppMessageTest() {
    answer(3);
    service_->answers["/1.png"] = {200, picture({640, 640}, QColor("#4a5df0"))};
    service_->answers["/2.png"] = {200, picture({900, 300}, QColor("#ffd166"))};
    service_->answers["/3.png"] = {200, picture({300, 600}, QColor("#2a9d8f"))};
    service_->answers["/campaigns/c-2"] = {200, campaignReply(richAttendancePage(), "c-2")};
    setInterval("86400000");
  }

  void answer(int count) {
    std::string items;
    for (int i = 1; i <= count; ++i) {
      const auto number = std::to_string(i);
      items += (i > 1 ? "," : "") + (R"({"campaign_id":"c-)" + number) +
               R"(","image_url":"https://img.example/)" + number + R"(.png"})";
    }
    service_->answers["/in-app-message/banner"] = {200, R"({"type":"banner","items":[)" + items + "]}"};
  }
  /// Starts the kit anew with this time between two turns, in milliseconds.
  void setInterval(const std::string& millis) {
    auto config = configReply();
    const std::string former = R"("auto_swipe_interval":3000)";
    config.replace(config.find(former), former.size(), R"("auto_swipe_interval":)" + millis);
    service_->answers["/config"] = {200, config};
    Orrelo::initialize(ORLConfig("shop"));
  }
  void show(int count = 3) {
    Orrelo::showInAppMessage(host());
    ASSERT_TRUE(waitForNamed(page(1, count)));
    settle();
  }
  bool isOpen() const { return host()->presentedViewController() != nullptr; }
  bool waitForPage(int number) {
    const bool isThere = waitForNamed(page(number));
    settle();
    return isThere && std::abs(picturePlace(number).center().x() - window_->width() / 2.0) < 1.0;
  }
  /// Empty while another page is the current one.
  QRectF picturePlace(int number) const {
    const auto* const picture = named(page(number));
    return picture != nullptr ? sceneRect(picture) : QRectF();
  }
  void drag(QPoint from, QPoint by, bool releases = true) {
    QTest::mousePress(window_, Qt::LeftButton, {}, from);
    for (int i = 1; i <= 8; ++i) QTest::mouseMove(window_, from + by * i / 8);
    if (releases) QTest::mouseRelease(window_, Qt::LeftButton, {}, from + by);
  }
  void turnWheel(QPoint delta) {
    const QPoint spot(window_->width() / 2, window_->height() / 2);
    QWheelEvent wheel(spot, window_->mapToGlobal(spot), {}, delta, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window_, &wheel);
  }
};

TEST_F(InAppMessageTest, FitsPhonesAndDesktops) {
  struct Place {
    QSize size;
    double textScale;
    double side;  // of the picture; 0 if it depends on the font
  };
  for (const auto& [size, scale, side] :
       {Place{{390, 844}, 1.0, 360}, Place{{320, 568}, 2.0, 290}, Place{{1280, 800}, 1.0, 0},
        Place{{568, 320}, 2.0, 0}, Place{{2000, 500}, 1.0, 0}}) {
    open(size, scale);
    show();
    expectNothingCut();
    const auto shown =
        grab(QStringLiteral("messages-%1-%2-%3").arg(size.width()).arg(size.height()).arg(scale));
    const auto place = picturePlace(1);
    const auto corner = place.topLeft().toPoint();
    const QColor ground(76, 76, 76);
    EXPECT_EQ(count(shown.copy({corner, QSize(2, 2)}), ground), 4) << "the corners are rounded";
    EXPECT_EQ(count(shown.copy({corner + QPoint(4, 4), QSize(2, 2)}), ground), 0);
    EXPECT_NEAR(place.width(), place.height(), 0.01);
    EXPECT_NEAR(place.center().x(), size.width() / 2.0, 1.0);
    if (side > 0) {
      EXPECT_NEAR(place.width(), side, 0.01);
      EXPECT_NEAR(place.center().y(), size.height() / 2.0, 16.0);
    } else {
      EXPECT_GT(place.height(), size.height() * 0.3) << "as large as the labels allow";
    }
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return named(skip) == nullptr; }));
  }
}

TEST_F(InAppMessageTest, ItIsTurnedByDragWheelAndKeys) {
  show();
  const auto middle = picturePlace(1).center().toPoint();
  EXPECT_EQ(focusName(), page(1)) << "what a screen reader reads first";
  drag(middle + QPoint(120, 0), {-250, 0});
  EXPECT_TRUE(waitForPage(2));
  EXPECT_TRUE(isOpen()) << "a drag is no press";
  EXPECT_EQ(focusName(), page(2));
  drag(middle - QPoint(120, 0), {250, 0});
  EXPECT_TRUE(waitForPage(1));
  drag(middle, {20, 0});
  settle();
  EXPECT_TRUE(waitForPage(1));
  turnWheel({0, -120});
  EXPECT_TRUE(waitForPage(2));
  EXPECT_TRUE(waitFor([&] {
    turnWheel({-120, 0});  // ignored soon after the former turn
    return named(page(3)) != nullptr;
  }));
  EXPECT_TRUE(waitForPage(3));
  press(Qt::Key_Left);
  press(Qt::Key_Left);
  EXPECT_TRUE(waitForPage(1));
  QStringList order;
  for (int i = 0; i < 4; ++i) {
    press(Qt::Key_Tab);
    order.push_back(focusName());
  }
  EXPECT_EQ(order, QStringList({skip, cross, confirm, page(1)}));
  press(Qt::Key_Right);
  EXPECT_TRUE(waitForPage(2));
  press(Qt::Key_Return);
  EXPECT_TRUE(waitForNamed(QStringLiteral("매일 출석체크")));
  settle();
  EXPECT_EQ(named(skip), nullptr) << "the campaign has taken its place";
}

TEST_F(InAppMessageTest, EachPressDoesWhatItIsOn) {
  open({900, 800});
  for (const auto& way : {cross, confirm, QStringLiteral("above"), QStringLiteral("beside")}) {
    show();
    const auto place = picturePlace(1);
    if (way == QLatin1String("above")) {
      QTest::mouseClick(window_, Qt::LeftButton, {}, {20, 20});
    } else if (way == QLatin1String("beside")) {
      QTest::mouseClick(window_, Qt::LeftButton, {}, {20, static_cast<int>(place.center().y())});
    } else {
      click(way);
    }
    EXPECT_FALSE(isOpen()) << way.toStdString();
    EXPECT_TRUE(waitFor([&] { return named(skip) == nullptr; }));
    EXPECT_EQ(service_->timesAsked("/campaigns/c-1"), 0) << way.toStdString();
  }
  show();
  click(page(1));
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/campaigns/c-1") > 0; }));
  const auto presented = host()->presentedViewController();
  ASSERT_NE(presented, nullptr);
  EXPECT_EQ(presented->kind(), "CampaignViewController");
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
  show();
  click(skip);
  EXPECT_FALSE(isOpen());
  Orrelo::showInAppMessage(host());
  settle();
  EXPECT_FALSE(isOpen()) << "until tomorrow";
}

TEST_F(InAppMessageTest, ItTurnsByItselfUnlessItIsHeldOrRead) {
  setInterval("400");
  show();
  const auto screen =
      std::dynamic_pointer_cast<InAppMessageViewController>(host()->presentedViewController());
  ASSERT_NE(screen, nullptr);
  const auto current = [&screen] { return screen->state.value().currentPage; };
  int ticks = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
  timer.start(400);
  const auto middle = QPoint(window_->width() / 2, window_->height() / 2);
  QTest::mousePress(window_, Qt::LeftButton, {}, middle);
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), skip);
  settle();
  const auto staysForTwoTicks = [&, held = current()] {
    EXPECT_TRUE(waitFor([&, until = ticks + 2] { return ticks >= until; }));
    return current() == held;
  };
  EXPECT_TRUE(staysForTwoTicks()) << "a pointer holds it";
  QAccessible::setActive(true);
  press(Qt::Key_Backtab);
  QTest::mouseMove(window_, {middle.x(), 20});
  QTest::mouseRelease(window_, Qt::LeftButton, {}, {middle.x(), 20});
  EXPECT_TRUE(staysForTwoTicks()) << "a screen reader's focus is on it";
  press(Qt::Key_Tab);
  EXPECT_TRUE(waitFor([&] { return current() == 2; }));
  EXPECT_TRUE(waitFor([&] { return current() == 0; })) << "after the last comes the first";
}

TEST_F(InAppMessageTest, ResizingKeepsThePageAndReducedMotionDoesNotSlide) {
  std::dynamic_pointer_cast<PosixApplication>(Platform::current().application)->setPrefersReducedMotion(true);
  show();
  press(Qt::Key_Right);
  EXPECT_NEAR(picturePlace(2).center().x(), 195, 1) << "at once";
  press(Qt::Key_Right);
  for (const auto size : {QSize(1000, 700), QSize(320, 568), QSize(700, 300), QSize(390, 844)}) {
    window_->resize(size);
    EXPECT_TRUE(waitFor([&] { return window_->contentItem()->width() == size.width(); }));
    settle();
    ASSERT_NE(named(page(3)), nullptr) << size.width();
    EXPECT_NEAR(picturePlace(3).center().x(), size.width() / 2.0, 1);
    expectNothingCut();
  }
}

TEST_F(InAppMessageTest, OneMessageHasNoPageControlAndManyHaveANumber) {
  answer(1);
  show(1);
  EXPECT_TRUE(drawnBy("PageControl").empty());
  press(Qt::Key_Right);
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return named(skip) == nullptr; }));
  answer(60);
  show(60);
  expectNothingCut();
  grab("messages-sixty");
  EXPECT_EQ(drawnBy("PageControl").size(), 1U);
  EXPECT_LE(drawnBy("InAppMessageViewCell").size(), 5U) << "pages far away do not exist";
}

TEST_F(InAppMessageTest, APictureThatIsMissingLeavesAPlaceThatCanBePressed) {
  service_->answers["/1.png"] = {404, ""};
  service_->answers.erase("/2.png");
  show();
  const auto shown = grab("messages-without-picture");
  const auto place = picturePlace(1);
  EXPECT_EQ(place.width(), 360);
  EXPECT_GT(count(shown.copy(place.toRect()), QColor("#5b5d60")), 100'000) << "the placeholder's ground";
  press(Qt::Key_Right);
  EXPECT_TRUE(waitForPage(2));
  click(page(2));
  EXPECT_TRUE(waitForNamed(QStringLiteral("매일 출석체크")));
}

}  // namespace
}  // namespace orrelo::test

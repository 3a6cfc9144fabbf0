#include "WebTest.h"

#include <QPointingDevice>

namespace orrelo::test {
namespace {

class WebInputTest : public WebTest {
 protected:
  bool isInPage() const { return engineView()->hasActiveFocus(); }
  /// The top of the button below the block, which moves when the screen scrolls.
  double top() const { return named(button)->mapToScene({0, 0}).y(); }
  /// Shows a page that is higher than its block, on a screen higher than its window.
  void showHigh(const std::string& script) {
    open({390, 300});
    show(
        "<div style='height:300px'></div><script>onscroll = () => { if (scrollY >= 60) say({end: scrollY}) "
        "}\n" +
        script + "</script>");
    ASSERT_TRUE(waitForGreen());
    ASSERT_TRUE(waitForRoomBelow(60));
  }
  bool waitForRoomBelow(double points) {
    return waitFor([&] { return engineView()->parentItem()->property("roomBelow").toDouble() == points; });
  }
  void turnWheel(int turn, quint64 time = 0) {
    QWheelEvent event(inPage_, window_->mapToGlobal(inPage_), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    event.setTimestamp(time);
    QCoreApplication::sendEvent(window_, &event);
  }
  /// Moves a finger up by 120 points.
  void drag() {
    QTest::touchEvent(window_, finger_.get()).press(0, inPage_, window_);
    for (int moved = 8; moved <= 120; moved += 8) {
      QTest::touchEvent(window_, finger_.get()).move(0, inPage_ - QPoint(0, moved), window_);
    }
    QTest::touchEvent(window_, finger_.get()).release(0, inPage_ - QPoint(0, 120), window_);
  }

 private:
  const std::unique_ptr<QPointingDevice> finger_{QTest::createTouchDevice()};
};

TEST_F(WebInputTest, TheKeyboardGoesInAndOut) {
  show(
      "<input autofocus id=a><input id=b><script>"
      "a.onfocus = () => say({a: 'focus'}); b.onfocus = () => say({b: 'focus'})</script>");
  ASSERT_TRUE(waitForGreen());
  EXPECT_FALSE(isInPage());
  for (int i = 0; i < 6 && !isInPage(); ++i) press(Qt::Key_Tab);
  ASSERT_TRUE(isInPage());
  const auto rings = drawnBy("FocusRing");
  ASSERT_EQ(rings.size(), 1U);
  EXPECT_EQ(sceneRect(rings.front()), sceneRect(engineView()));
  EXPECT_EQ(said("a"), QStringLiteral("focus"));
  press(Qt::Key_Tab);
  EXPECT_EQ(said("b"), QStringLiteral("focus"));
  press(Qt::Key_Tab);
  EXPECT_TRUE(waitFor([&] { return focusName() == button; }));
  press(Qt::Key_Backtab);
  EXPECT_TRUE(waitFor([&] { return isInPage(); }));
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return named(button) == nullptr; }));
}

TEST_F(WebInputTest, APageThatSwallowsKeysIsLeftByF6) {
  show("<script>onkeydown = (event) => { event.preventDefault(); say({[event.key]: 'mine'}) }</script>");
  ASSERT_TRUE(waitForGreen());
  QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
  press(Qt::Key_Tab);
  EXPECT_EQ(said("Tab"), QStringLiteral("mine"));
  EXPECT_TRUE(isInPage());
  press(Qt::Key_F6);
  EXPECT_EQ(focusName(), button);
  QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
  QTest::keyClick(window_, Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_FALSE(isInPage());
  EXPECT_NE(focusName(), button);
}

TEST_F(WebInputTest, AMouseThatIsDraggedBelongsToThePage) {
  showHigh("onmouseup = (event) => say({up: event.clientY})");
  const double before = top();
  QTest::mousePress(window_, Qt::LeftButton, {}, inPage_);
  for (int moved = 8; moved <= 80; moved += 8) QTest::mouseMove(window_, inPage_ - QPoint(0, moved));
  QTest::mouseRelease(window_, Qt::LeftButton, {}, inPage_ - QPoint(0, 80));
  EXPECT_EQ(said("up").toDouble(), inPage_.y() - 80 - 44 - 24);
  EXPECT_EQ(top(), before);
}

TEST_F(WebInputTest, AFingerScrollsThePageWhileItCanAndThenTheScreen) {
  showHigh("addEventListener('touchend', () => say({finger: 'up'}))");
  const double before = top();
  drag();
  EXPECT_EQ(said("finger"), QStringLiteral("up"));
  EXPECT_EQ(said("end"), QStringLiteral("60"));
  EXPECT_EQ(top(), before);
  ASSERT_TRUE(waitForRoomBelow(0));
  drag();
  EXPECT_TRUE(waitFor([&] { return top() < before; }));
}

TEST_F(WebInputTest, AWheelScrollsThePageWhileItCanAndThenTheScreen) {
  showHigh("");
  const double before = top();
  turnWheel(-120);
  EXPECT_EQ(said("end"), QStringLiteral("60"));
  EXPECT_EQ(top(), before);
  EXPECT_TRUE(waitFor([&] {
    turnWheel(-120);
    return top() < before;
  }));
}

TEST_F(WebInputTest, AWheelThatThePageMakesNothingOfScrollsTheScreen) {
  showHigh(
      "addEventListener('wheel', event => { event.preventDefault(); say({wheel: 'mine'}) }, {passive: "
      "false})");
  const double before = top();
  turnWheel(-120, 1000);
  EXPECT_EQ(said("wheel"), QStringLiteral("mine"));
  turnWheel(-120, 1099);
  EXPECT_EQ(top(), before) << "the page may still be busy";
  turnWheel(-120, 1100);
  EXPECT_TRUE(waitFor([&] { return top() < before; }));
}

}  // namespace
}  // namespace orrelo::test

#include "QuickTest.h"
#include "platform/posix/PosixApplication.h"
#include "support/ExplanationCapture.h"
#include "ui/NavigationController.h"
#include "viewkit/ErrorViewController.h"

#include <thread>
#include <vector>

namespace orrelo::test {
namespace {

using std::chrono::milliseconds;

/// A screen that the front has no view for.
class CountingScreen final : public ViewController {
 public:
  std::string_view kind() const override { return "CountingScreen"; }
  int appeared = 0;
  int disappeared = 0;

 protected:
  void viewDidAppear(bool) override { ++appeared; }
  void viewDidDisappear(bool) override { ++disappeared; }
};

std::shared_ptr<ErrorViewController> screen(const char* text) {
  return std::make_shared<ErrorViewController>(text);
}

using HostTest = QuickTest;

TEST_F(HostTest, TheMainLoopRunsTasksInOrderAndDelayedOnesWhenDue) {
  const auto& loop = Platform::current().mainLoop;
  std::vector<int> order;
  bool wasCurrent = true;
  std::thread other([&] {
    wasCurrent = loop->isCurrent();
    loop->postAfter(milliseconds(30), [&] { order.push_back(3); });
    loop->postAfter(milliseconds(10), [&] { order.push_back(2); });
    loop->post([&] { order.push_back(0); });
    loop->postAfter(milliseconds(0), [&] { order.push_back(1); });
  });
  other.join();
  EXPECT_TRUE(loop->isCurrent());
  EXPECT_FALSE(wasCurrent);
  EXPECT_TRUE(order.empty()) << "nothing runs before the loop does";
  EXPECT_TRUE(waitFor([&] { return order.size() == 4; }));
  EXPECT_EQ(order, (std::vector{0, 1, 2, 3}));
}

TEST_F(HostTest, AScreenComesFromBelowAndGoesAgain) {
  named("host")->forceActiveFocus();
  host()->present(screen("문제가 생겼어요"), true);
  ASSERT_TRUE(waitForNamed(back));
  EXPECT_GT(named(back)->mapToScene({0, 0}).y(), 400.0) << "on its way";
  grab("error-390");
  EXPECT_LT(named(back)->mapToScene({0, 0}).y(), 1.0);
  EXPECT_FALSE(named("host")->isEnabled());
  click(back);
  EXPECT_EQ(host()->presentedViewController(), nullptr);
  EXPECT_NE(named(back), nullptr) << "it is still visible on its way out";
  EXPECT_EQ(focusName(), "host") << "it has no input any more";
  EXPECT_TRUE(waitFor([&] { return named(back) == nullptr; }));
  host()->present(screen("다시"), false);
  ASSERT_NE(named(back), nullptr);
  EXPECT_LT(named(back)->mapToScene({0, 0}).y(), 1.0) << "not animated";
  press(Qt::Key_Back);
  EXPECT_EQ(host()->presentedViewController(), nullptr);
}

TEST_F(HostTest, ReducedMotionShowsAScreenAtOnce) {
  const auto application = std::dynamic_pointer_cast<PosixApplication>(Platform::current().application);
  application->setPrefersReducedMotion(true);
  host()->present(screen("문제가 생겼어요"), true);
  ASSERT_NE(named(back), nullptr);
  EXPECT_LT(named(back)->mapToScene({0, 0}).y(), 1.0);
  click(back);
  EXPECT_EQ(named(back), nullptr);
}

TEST_F(HostTest, ACoveredScreenIsNotDrawn) {
  const auto lower = screen("아래");
  host()->present(lower, false);
  lower->present(screen("위"), true);
  settle();
  EXPECT_EQ(named(QStringLiteral("아래")), nullptr);
  lower->dismiss(true);
  EXPECT_NE(named(QStringLiteral("아래")), nullptr) << "it shows while the one above goes";
}

TEST_F(HostTest, AStackHasABarWithItsTitleAndTheWayBack) {
  const auto navigation = NavigationController::create(screen("첫 화면"));
  host()->present(navigation, false);
  settle();
  navigation->topViewController()->setTitle("내 이벤트");
  EXPECT_NE(named(QStringLiteral("내 이벤트")), nullptr);
  navigation->pushViewController(screen("둘째 화면"), true);
  settle();
  grab("navigation-390");
  EXPECT_EQ(named(QStringLiteral("첫 화면")), nullptr);
  EXPECT_NE(named(QStringLiteral("둘째 화면")), nullptr);
  click(back);
  settle();
  EXPECT_EQ(navigation->state().viewControllers.size(), 1U);
  EXPECT_NE(named(QStringLiteral("첫 화면")), nullptr);
  EXPECT_EQ(named(QStringLiteral("둘째 화면")), nullptr);
  navigation->setNavigationBarHidden(true);
  EXPECT_EQ(named(back), nullptr);
  press(Qt::Key_Escape);
  EXPECT_EQ(host()->presentedViewController(), nullptr);
}

TEST_F(HostTest, AWindowMayHaveAStackOfItsOwn) {
  EXPECT_FALSE(quick::push(window_, screen("없는 곳"))) << "it has none";
  window_->setProperty("pushesScreens", true);
  const auto navigation = host()->navigationController();
  ASSERT_NE(navigation, nullptr);
  EXPECT_TRUE(host()->isVisible());
  EXPECT_EQ(named(back), nullptr) << "the host's own content has no bar of the kit";
  showCampaign();
  settle();
  EXPECT_EQ(navigation->state().viewControllers.size(), 2U);
  EXPECT_FALSE(host()->isVisible());
  EXPECT_FALSE(named("host")->isEnabled());
  navigation->topViewController()->setTitle("내 이벤트");
  EXPECT_NE(named(QStringLiteral("내 이벤트")), nullptr);
  const auto above = std::make_shared<CountingScreen>();
  EXPECT_TRUE(quick::present(window_, above));
  EXPECT_FALSE(quick::present(window_, navigation)) << "it is already shown";
  EXPECT_EQ(above->appeared, 1);
  EXPECT_FALSE(navigation->isVisible());
  above->dismiss(false);
  settle();
  click(back);
  settle();
  EXPECT_TRUE(host()->isVisible());
  EXPECT_EQ(named(back), nullptr);
  EXPECT_TRUE(quick::push(window_, screen("둘째 화면"), false));
  ASSERT_NE(named(QStringLiteral("둘째 화면")), nullptr);
  press(Qt::Key_Escape);
  EXPECT_EQ(navigation->topViewController(), host());
}

TEST_F(HostTest, ScreensAppearAndDisappearWithTheWindow) {
  EXPECT_TRUE(host()->isVisible());
  const auto above = std::make_shared<CountingScreen>();
  host()->present(above, false);
  EXPECT_FALSE(host()->isVisible());
  window_->hide();
  window_->show();
  EXPECT_EQ(above->appeared, 1) << "hiding the window is no disappearance";
  EXPECT_EQ(above->disappeared, 0);
  EXPECT_FALSE(host()->isVisible()) << "it is covered";
  window_->hide();
  above->dismiss(false);
  EXPECT_TRUE(host()->isVisible());
  QQuickWindow unseen;
  EXPECT_NE(quick::hostViewController(&unseen), host()) << "every window has its own";
  EXPECT_FALSE(quick::hostViewController(&unseen)->isVisible());
  unseen.show();
  EXPECT_TRUE(quick::hostViewController(&unseen)->isVisible());
  engine_.reset();
  EXPECT_EQ(above->disappeared, 1);
}

TEST_F(HostTest, AScreenWithoutAWindowIsNotShownAndALineSaysWhy) {
  const ExplanationCapture log;
  const auto nowhere = quick::hostViewController(nullptr);
  const auto lost = std::make_shared<CountingScreen>();
  nowhere->present(lost, true);
  EXPECT_EQ(lost->appeared, 0);
  EXPECT_FALSE(quick::present(nullptr, lost));
  EXPECT_FALSE(quick::push(nullptr, lost));
  QQuickWindow bare;
  EXPECT_TRUE(quick::present(&bare, std::make_shared<CountingScreen>(), false));
  EXPECT_FALSE(quick::push(&bare, lost));
  EXPECT_FALSE(quick::present(&bare, nullptr));
  EXPECT_THAT(log.lines(), testing::ElementsAre(testing::HasSubstr("hostViewController was given no window"),
                                                testing::HasSubstr("present was given no window"),
                                                testing::HasSubstr("push was given no window"),
                                                testing::HasSubstr("without an OrreloHost"),
                                                testing::HasSubstr("set its pushesScreens"),
                                                testing::HasSubstr("refuses")));
}

TEST_F(HostTest, CallsOnAnotherThreadAndWithoutTheFrontHaveTheirLines) {
  using testing::HasSubstr;
  const ExplanationCapture log;
  const auto lost = std::make_shared<CountingScreen>();
  std::shared_ptr<ViewController> inert;
  std::thread([&] {
    inert = quick::hostViewController(window_);
    EXPECT_FALSE(quick::present(window_, lost));
    EXPECT_FALSE(quick::push(window_, lost));
  }).join();
  ASSERT_NE(inert, nullptr);
  EXPECT_NE(inert, host());
  EXPECT_FALSE(inert->isVisible());
  EXPECT_EQ(lost->appeared, 0);

  const auto front = Platform::current();
  auto withoutFront = front;
  withoutFront.mainLoop = std::shared_ptr<MainLoop>(&RunLoop::main(), [](MainLoop*) {});
  Platform::install(withoutFront);
  EXPECT_EQ(quick::hostViewController(window_), host());
  Platform::install(front);
  const auto elsewhere = [](const char* call) {
    return HasSubstr(std::string(call) + " is called on another thread than the window's");
  };
  EXPECT_THAT(log.lines(), testing::IsSupersetOf(
                               {elsewhere("hostViewController"), elsewhere("present"), elsewhere("push")}));
  EXPECT_THAT(log.lines(), testing::Contains(HasSubstr("finds a platform without Qt's event loop")));
}

TEST_F(HostTest, TheApplicationIsInTheBackgroundWhileNoWindowCanBeSeen) {
  std::vector<std::string> heard;
  std::vector<Application::Registration> registrations;
  const auto observe = [&](const std::string& name, Application& application) {
    for (const auto signal :
         {Application::Signal::didEnterBackground, Application::Signal::willEnterForeground}) {
      const auto* const what = signal == Application::Signal::didEnterBackground ? " leaves" : " comes";
      registrations.push_back(
          application.observe(signal, [&heard, line = name + what] { heard.push_back(line); }));
    }
  };
  settle();
  observe("early", *Platform::current().application);
  const auto late = quick::platform({.dataDirectory = folder_.path(), .cacheDirectory = folder_.path()});
  observe("late", *late.application);  // created after the window was shown
  window_->showMinimized();
  EXPECT_TRUE(waitFor([&] { return heard.size() == 2; }));
  window_->showNormal();
  EXPECT_TRUE(waitFor([&] { return heard.size() == 4; }));
  window_->hide();
  EXPECT_TRUE(waitFor([&] { return heard.size() == 6; }));
  EXPECT_THAT(heard, testing::UnorderedElementsAre("early leaves", "late leaves", "early comes", "late comes",
                                                   "early leaves", "late leaves"));
}

}  // namespace
}  // namespace orrelo::test

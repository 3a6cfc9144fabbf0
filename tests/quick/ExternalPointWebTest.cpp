#include "WebTest.h"
#include "rewards/externalpoint/ExternalPointExchangeViewController.h"

#include <QPointingDevice>
#include <csignal>

namespace orrelo::test {
namespace {

using Kind = devservice::Fault::Kind;

/// The exchange with a page of a real server.
class ExternalPointWebTest : public WebTest {
 protected:
  void write(const std::string& name, const std::string& body) {
    const auto folder = folder_.path() / "scenario/pages";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name)
        << "<!doctype html><meta charset=utf-8><title>" << name
        << "</title><style>html{background:#10a050}body{margin:0}a{display:block;height:400px}</"
           "style><script>"
           "const say = (what) => { const r = new XMLHttpRequest();"
           " r.open('GET', '/pages/said?' + new URLSearchParams(what), false); r.send() }</script>"
        << body;
  }
  void present() {
    screen_ =
        std::make_shared<ExternalPointExchangeViewController>(pages_.baseUrl() + "/pages/landing.html?old=1");
    ASSERT_TRUE(host()->present(screen_, true));
    settle();
  }
  bool isOpen() const { return screen_->presentingViewController() != nullptr; }
  bool isIndicatorShown() const {
    const auto indicators = drawnBy("ActivityIndicator");
    return !indicators.empty();
  }
  bool waitForTitle(const QString& title) {
    return waitFor([&] { return engineView() != nullptr && engineView()->property("title") == title; });
  }
  void expectToCloseByEscape() {
    ASSERT_TRUE(isOpen());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(waitFor([&] { return drawnBy("ExternalPointExchangeViewController").empty(); }));
  }
  void swipe() {
    // Events are not processed in between, since the time of a swipe is limited.
    const auto end = inPage_ + QPoint(100, 0);
    auto touch = QTest::touchEvent(window_, finger_.get(), false);
    touch.press(0, inPage_, window_).commit(false);
    touch.move(0, end, window_).commit(false);
    touch.release(0, end, window_).commit(false);
  }

  std::shared_ptr<ExternalPointExchangeViewController> screen_;

 private:
  const std::unique_ptr<QPointingDevice> finger_{QTest::createTouchDevice()};
};

TEST_F(ExternalPointWebTest, ThePageOfTheUserFillsTheScreenAndClosesIt) {
  write("landing.html", R"(<iframe src=frame.html></iframe><script>
    say({query: location.search, native: typeof webkit.messageHandlers.Native.postMessage,
         orrelo: typeof webkit.messageHandlers.Orrelo, channel: typeof qt})
    webkit.messageHandlers.Native.postMessage({close: true})
    webkit.messageHandlers.Native.postMessage('Close')
    onclick = () => { for (let i = 0; i < 100; ++i) webkit.messageHandlers.Native.postMessage('close') }
  </script>)");
  write("frame.html", "<script>say({frame: typeof webkit.messageHandlers.Native.postMessage})</script>");
  present();
  EXPECT_EQ(said("query"), QStringLiteral("?userID=u-1"));
  EXPECT_EQ(said("native"), QStringLiteral("function"));
  EXPECT_EQ(said("frame"), QStringLiteral("function"));
  EXPECT_EQ(said("orrelo"), QStringLiteral("undefined"));
  EXPECT_EQ(said("channel"), QStringLiteral("undefined"));
  ASSERT_TRUE(waitForGreen());
  EXPECT_TRUE(waitFor([&] { return !isIndicatorShown(); }));
  EXPECT_EQ(engineView()->size(), QSizeF(390, 844));
  EXPECT_TRUE(engineView()->hasActiveFocus());
  grab("exchange");
  EXPECT_TRUE(isOpen());
  QTest::mouseClick(window_, Qt::LeftButton, {}, {195, 700});
  EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
  EXPECT_TRUE(waitFor([&] { return drawnBy("ExternalPointExchangeViewController").empty(); }));
}

TEST_F(ExternalPointWebTest, BackAndASwipeGoThroughTheHistoryFirst) {
  write("landing.html", "<a href=second.html></a>");
  write("second.html", "");
  present();
  ASSERT_TRUE(waitForTitle(QStringLiteral("landing.html")));
  const auto follow = [&] {
    ASSERT_TRUE(waitForGreen());
    ASSERT_TRUE(waitFor([&] { return !isLoading(); }));
    // The engine may lose a click on a page that it has just begun to show.
    const auto isSecond = [&] { return engineView()->property("title") == QStringLiteral("second.html"); };
    ASSERT_TRUE(waitFor([&] {
      QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
      return QTest::qWaitFor(isSecond, 8000);
    }));
    ASSERT_TRUE(waitFor([&] { return engineView()->property("canGoBack").toBool(); }));
  };
  follow();
  press(Qt::Key_Back);
  ASSERT_TRUE(waitForTitle(QStringLiteral("landing.html")));
  follow();
  swipe();
  ASSERT_TRUE(waitForTitle(QStringLiteral("landing.html")));
  EXPECT_TRUE(isOpen());
  ASSERT_TRUE(waitFor([&] { return !engineView()->property("canGoBack").toBool(); }));
  swipe();
  EXPECT_FALSE(isOpen());
  const auto layers = drawnBy("ScreenLayer");
  ASSERT_FALSE(layers.empty());
  EXPECT_TRUE(layers.back()->property("isLeaving").toBool());
  layers.back()->setProperty("presence", 0.5);
  EXPECT_EQ(sceneRect(layers.back()).left(), 195.0) << "it leaves to the right";
  EXPECT_TRUE(waitFor([&] { return drawnBy("ExternalPointExchangeViewController").empty(); }));
}

TEST_F(ExternalPointWebTest, APageThatNeverAnswersCanBeLeft) {
  pages_.orderFault({.kind = Kind::hang, .pathSuffix = "/pages/landing.html"});
  write("landing.html", "");
  present();
  EXPECT_TRUE(isIndicatorShown());
  loop_->letTimePass();
  EXPECT_TRUE(waitFor([&] { return engineView() == nullptr; })) << "after a minute";
  EXPECT_TRUE(isIndicatorShown());
  grab("exchange-silent");
  expectToCloseByEscape();
}

TEST_F(ExternalPointWebTest, APageThatMisbehavesCanBeLeft) {
  write("landing.html", R"(<script>
    onkeydown = event => event.preventDefault()
    for (const name of ['first', 'second']) open('/' + name)
    for (let i = 0; i < 20; ++i) alert(i)
    setInterval(() => history.pushState(null, '', '#' + Math.random()), 20)
    say({at: 'push'})</script>)");
  present();
  EXPECT_EQ(said("at"), QStringLiteral("push"));
  EXPECT_TRUE(waitFor([&] { return desktop_.opened == QStringList("/first"); }));
  expectToCloseByEscape();
  write("landing.html",
        "<script>say({turn: 'on'}); location.replace('landing.html?' + Math.random())</script>");
  present();
  EXPECT_EQ(said("turn"), QStringLiteral("on"));
  expectToCloseByEscape();
  write("landing.html", "<script>say({loop: 'on'}); while (true) {}</script>");
  present();
  EXPECT_EQ(said("loop"), QStringLiteral("on"));
  expectToCloseByEscape();
}

TEST_F(ExternalPointWebTest, APageThatCrashesCanBeLeft) {
  write("landing.html", "");
  present();
  ASSERT_TRUE(waitForGreen());
  const auto process = engineView()->property("renderProcessPid").toInt();
  ASSERT_GT(process, 1);
  ::kill(process, SIGKILL);
  EXPECT_TRUE(waitFor([&] { return engineView() == nullptr; }));
  press(Qt::Key_Back);
  EXPECT_FALSE(isOpen()) << "a page that is gone has no history";
}

}  // namespace
}  // namespace orrelo::test

#include "WebTest.h"

#include <QStandardPaths>
#include <atomic>
#include <csignal>

namespace orrelo::test {
namespace {

using Kind = devservice::Fault::Kind;

TEST_F(WebTest, APageIsPaintedInItsPlaceAlthoughAPictureOfItNeverComes) {
  pages_.orderFault({.kind = Kind::hang, .pathSuffix = "/images/slow.png"});
  show(
      "<img src=/images/slow.png hidden><script>"
      "say({language: navigator.language, focus: document.hasFocus()})</script>");
  EXPECT_EQ(said("language"), QStringLiteral("ko-KR"));
  EXPECT_EQ(said("focus"), QStringLiteral("false")) << "a page does not take the focus when it loads";
  ASSERT_TRUE(waitForRequest("/images/slow.png"));
  ASSERT_TRUE(waitForGreen());
  EXPECT_TRUE(isLoading());
  loop_->letTimePass();
  EXPECT_TRUE(waitFor([&] { return !isLoading(); }));
  const auto picture = grab("web-page");
  EXPECT_EQ(count(picture, green), 390 * 240);
  EXPECT_EQ(count(picture.copy(0, 44 + 24, 390, 240), green), 390 * 240);
  const auto* const named = this->named(QStringLiteral("안내"));
  ASSERT_NE(named, nullptr) << "named by its title";
  EXPECT_EQ(sceneRect(named), QRectF(0, 44 + 24, 390, 240));
  window_->hide();
  settle();
  window_->show();
  EXPECT_TRUE(waitForGreen());
  EXPECT_EQ(pages_.requestCount("/pages/page.html"), 1) << "a window that is shown again goes on";
}

TEST_F(WebTest, AllPagesShareOneProfileInTheKitsFolders) {
  show("<script>document.cookie = 'a=b'; say({first: document.cookie})</script>");
  EXPECT_EQ(said("first"), QStringLiteral("a=b"));
  open({390, 844});
  show("<script>say({second: document.cookie})</script>");
  EXPECT_EQ(said("second"), QStringLiteral("a=b"));
  const StoreFolders folders;
  EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(folders.data() / "web/Cookies"); }));
  EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(folders.cache() / "web/Cache"); }));
  const auto engines =
      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/QtWebEngine");
  EXPECT_FALSE(std::filesystem::exists(engines.toStdString()));
}

TEST_F(WebTest, APageHigherThanAnyScreenIsNotPaintedWhole) {
  show("", 1'000'000);
  ASSERT_TRUE(waitForGreen());
  EXPECT_EQ(engineView()->size(), QSizeF(390, 8192));
  EXPECT_EQ(engineView()->parentItem()->height(), 1'000'000);
}

TEST_F(WebTest, APageThatLoopsForEverHoldsUpNothing) {
  show("<script>say({at: 'loop'}); while (true) {}</script>");
  EXPECT_EQ(said("at"), QStringLiteral("loop"));
  click(button);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/join") == 1; }));
  QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
  EXPECT_TRUE(engineView()->hasActiveFocus());
  press(Qt::Key_Tab);
  EXPECT_TRUE(engineView()->hasActiveFocus()) << "the page may handle the key";
  press(Qt::Key_Tab);
  EXPECT_FALSE(engineView()->hasActiveFocus()) << "the page has not answered since";
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return named(button) == nullptr; })) << "Escape leaves the screen";
}

TEST_F(WebTest, APageGetsNoPermissions) {
  static std::atomic<int> lines;
  lines = 0;
  const auto former =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString&) {
        lines += QLatin1String(context.category) == QLatin1String("js");
      });
  show(R"(<a href='/sale' target=_blank style='display:block;height:240px'></a><script>
    onload = async () => {
      for (let i = 0; i < 200; ++i) alert(i)
      const result = {confirm: confirm('?'), prompt: prompt('?', 'x')}
      result.position = await new Promise(done =>
        navigator.geolocation.getCurrentPosition(() => done('told'), fault => done(fault.code)))
      result.notify = await Notification.requestPermission()
      result.camera = await navigator.mediaDevices.getUserMedia({video: true}).then(() => 'on', () => 'refused')
      result.sound = await new Audio('data:audio/wav;base64,UklGRiYAAABXQVZFZm10IBAAAAABAAEAQB8AAEAfAAABAAgAZGF0YQIAAACAgA==')
        .play().then(() => 'on', fault => fault.name)
      console.error('noise')
      result.full = await document.documentElement.requestFullscreen().then(() => 'on', () => 'refused')
      for (const name of ['first', 'second', 'third']) open('/' + name)
      open('file:///etc/passwd')
      try { window.webkit.messageHandlers.Orrelo.postMessage({}) } catch (fault) { result.post = 'refused' }
      for (const url of ['file:///etc/passwd', 'qrc:/qt-project.org/imports/Orrelo/qmldir', 'shop://sale', 'chrome://gpu'])
        location = url
      const link = document.createElement('a')
      link.download = 'file'
      link.href = 'data:text/plain,x'
      link.click()
      print()
      setTimeout(() => { say({...result, at: location.pathname}) }, 0)
    }</script>)");
  EXPECT_EQ(said("confirm"), QStringLiteral("false"));
  EXPECT_EQ(said("prompt"), QStringLiteral("null"));
  EXPECT_EQ(said("position"), QStringLiteral("1")) << "denied";
  EXPECT_EQ(said("notify"), QStringLiteral("denied"));
  EXPECT_EQ(said("camera"), QStringLiteral("refused"));
  EXPECT_EQ(said("sound"), QStringLiteral("NotAllowedError")) << "without a user gesture";
  EXPECT_EQ(said("full"), QStringLiteral("refused"));
  EXPECT_EQ(said("post"), QStringLiteral("refused"));
  EXPECT_EQ(said("at"), QStringLiteral("/pages/page.html"));
  EXPECT_TRUE(waitForGreen());
  EXPECT_EQ(desktop_.opened, QStringList("/first")) << "one window without a user gesture";
  QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
  EXPECT_TRUE(waitFor([&] { return desktop_.opened == QStringList({"/first", "/sale"}); }));
  EXPECT_EQ(QGuiApplication::topLevelWindows().size(), 1) << "no dialog, no window";
  qInstallMessageHandler(former);
  EXPECT_EQ(lines, 0);
}

TEST_F(WebTest, ARedirectingPageWhoseTargetFailsLeavesThePlaceEmpty) {
  pages_.orderFault({.kind = Kind::drop, .pathSuffix = "/pages/next.html"});
  show("<script>stop(); setTimeout(() => location.replace('/pages/next.html'), 100)</script>");
  expectEmptyButUsable();
}

TEST_F(WebTest, APageThatCrashesLeavesThePlaceEmpty) {
  show("");
  ASSERT_TRUE(waitForGreen());
  const auto process = engineView()->property("renderProcessPid").toInt();
  ASSERT_GT(process, 1);
  ::kill(process, SIGKILL);
  expectEmptyButUsable();
  EXPECT_EQ(pages_.requestCount("/pages/page.html"), 1);
}

TEST_F(WebTest, AnUntrustedServerIsNotAsked) {
  Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane")->remove("ORRELO_SERVICE_URL");
  show("");
  expectEmptyButUsable();
  EXPECT_EQ(pages_.requestCount("/pages/page.html"), 0);
}

}  // namespace
}  // namespace orrelo::test

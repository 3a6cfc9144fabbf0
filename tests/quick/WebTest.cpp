#include "DevService.h"
#include "QuickTest.h"
#include "WebPages.h"
#include "support/Twins.h"

#include <orrelo/MainLoop.h>

#include <QDesktopServices>
#include <QUrlQuery>
#include <csignal>
#include <fstream>
#include <mutex>

namespace orrelo::test {
namespace {

using devservice::DevService;
using Kind = devservice::Fault::Kind;

const QString button = QStringLiteral("참여하기");
const QColor green(0x10, 0xA0, 0x50);

// The event loop, but what is to wait long waits until the test says so.
class PatientLoop final : public MainLoop {
 public:
  explicit PatientLoop(std::shared_ptr<MainLoop> loop) : loop_(std::move(loop)) {}

  void post(Task task) override { loop_->post(std::move(task)); }
  void postAfter(std::chrono::microseconds delay, Task task) override {
    if (delay < std::chrono::seconds(30)) return loop_->postAfter(delay, std::move(task));
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(task));
  }
  bool isCurrent() const override { return loop_->isCurrent(); }

  void letTimePass() {
    const auto due = [this] {
      const std::lock_guard lock(mutex_);
      return std::exchange(waiting_, {});
    }();
    for (const auto& task : due) task();
  }

 private:
  std::shared_ptr<MainLoop> loop_;
  std::mutex mutex_;
  std::vector<Task> waiting_;
};

// Takes the place of the machine's browser.
class Desktop final : public QObject {
  Q_OBJECT

 public:
  Desktop() {
    for (const auto* const scheme : {"http", "https"}) QDesktopServices::setUrlHandler(scheme, this, "open");
  }
  ~Desktop() override {
    for (const auto* const scheme : {"http", "https"}) QDesktopServices::unsetUrlHandler(scheme);
  }
  Q_INVOKABLE void open(const QUrl& url) { opened.push_back(url.path()); }

  QStringList opened;
};

/// Web pages in a real engine, from a real server. A page tells what it has come to by asking for
/// "/pages/said" with a query.
class WebTest : public QuickTest {
 protected:
  WebTest()
      : QuickTest([](Platform& platform) {
          platform.mainLoop = std::make_shared<PatientLoop>(platform.mainLoop);
          platform.device = std::make_shared<FixedDevice>();
        }) {
    pages_.start();
    const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
    suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
    suite->set("ORRELO_DEVELOPMENT_URL", pages_.baseUrl());
    suite->set("ORRELO_DEVELOPMENT_CA", pages_.certificatePath().string());
  }

  /// Shows a page of this body, in green.
  void show(const std::string& body) {
    const auto folder = folder_.path() / "scenario/pages";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "page.html")
        << "<!doctype html><meta charset=utf-8><title>안내</title>"
           "<style>html{background:#10a050}body{margin:0}</style><script>"
           "const say = (what) => { const r = new XMLHttpRequest();"
           " r.open('GET', '/pages/said?' + new URLSearchParams(what), false); r.send() }</script>"
        << body;
    service_->answers["/campaigns/c-1"] = {
        200, campaignReply(pageWithWebBlock(pages_.baseUrl() + "/pages/page.html"))};
    service_->answers["/join"] = {500, ""};
    showCampaign();
    ASSERT_TRUE(waitForNamed(button));
  }
  bool waitForRequest(const std::string& path) {
    return waitFor([&] { return pages_.requestCount(path) > 0; });
  }
  /// What the page said under this name; waits for it to say something.
  QString said(const QString& name) {
    if (!waitForRequest("/pages/said")) return QStringLiteral("nothing");
    for (const auto& request : pages_.requests()) {
      if (request.path != "/pages/said") continue;
      const QUrlQuery query(QUrl(QString::fromStdString(request.target)));
      if (query.hasQueryItem(name)) return query.queryItemValue(name, QUrl::FullyDecoded);
    }
    return {};
  }
  bool isLoading() const { return engineView()->property("loading").toBool(); }
  /// As the base's, for an engine of several processes on a busy machine.
  static bool waitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 15'000); }
  QQuickItem* engineView() const { return find(window_->contentItem()); }
  /// The place holds no page any more, and the block's neighbour answers.
  void expectEmptyButUsable() {
    EXPECT_TRUE(waitFor([&] { return engineView() == nullptr; }));
    const auto picture = grab("web-empty");
    EXPECT_EQ(count(picture, green), 0);
    EXPECT_EQ(topOfButton(picture), 44 + 24 + 240 + 24);
    click(button);
    EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/join") == 1; }));
  }
  bool waitForGreen() {
    return waitFor([&] { return count(window_->grabWindow(), green) > 50'000; });
  }
  void turnWheel(QPoint at, int turn) {
    QWheelEvent event(at, window_->mapToGlobal(at), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window_, &event);
  }

  const QPoint inPage_{195, 180};

  const std::shared_ptr<PatientLoop> loop_ =
      std::static_pointer_cast<PatientLoop>(Platform::current().mainLoop);
  Desktop desktop_;
  DevService pages_{
      {.dataDirectory = folder_.path() / "service", .scenarioDirectory = folder_.path() / "scenario"}};

 private:
  static QQuickItem* find(QQuickItem* item) {
    if (item->inherits("QQuickWebEngineView")) return item;
    for (auto* child : item->childItems()) {
      if (auto* const found = find(child)) return found;
    }
    return nullptr;
  }
};

TEST_F(WebTest, APageIsPaintedInItsPlaceAlthoughAPictureOfItNeverComes) {
  pages_.orderFault({.kind = Kind::hang, .pathSuffix = "/images/slow.png"});
  show(
      "<img src=/images/slow.png hidden><script>document.cookie = 'a=b; max-age=1000';"
      "say({language: navigator.language, focus: document.hasFocus()})</script>");
  EXPECT_EQ(said("language"), QStringLiteral("ko-KR"));
  EXPECT_EQ(said("focus"), QStringLiteral("false")) << "a page does not take the keyboard when it comes";
  ASSERT_TRUE(waitForRequest("/images/slow.png"));
  ASSERT_TRUE(waitForGreen());
  EXPECT_TRUE(isLoading());
  loop_->letTimePass();
  EXPECT_TRUE(waitFor([&] { return !isLoading(); }));
  const auto picture = grab("web-page");
  EXPECT_EQ(count(picture, green), 390 * 240);
  EXPECT_EQ(count(picture.copy(0, 44 + 24, 390, 240), green), 390 * 240);
  EXPECT_TRUE(std::filesystem::exists(folder_.path() / "web"));
}

TEST_F(WebTest, APageThatLoopsForEverHoldsUpNothing) {
  show("<script>say({at: 'loop'}); while (true) {}</script>");
  EXPECT_EQ(said("at"), QStringLiteral("loop"));
  click(button);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/join") == 1; }));
  QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
  turnWheel(inPage_, -120);
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return named(button) == nullptr; })) << "leaves the screen";
}

TEST_F(WebTest, APageGetsNothingButItsPlace) {
  show(R"(<a href='/sale' target=_blank style='display:block;height:240px'></a><script>
    onload = async () => {
      for (let i = 0; i < 200; ++i) alert(i)
      const result = {confirm: confirm('?'), prompt: prompt('?', 'x')}
      result.position = await new Promise(done =>
        navigator.geolocation.getCurrentPosition(() => done('told'), fault => done(fault.code)))
      result.notify = await Notification.requestPermission()
      result.camera = await navigator.mediaDevices.getUserMedia({video: true}).then(() => 'on', () => 'refused')
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
  EXPECT_EQ(said("full"), QStringLiteral("refused"));
  EXPECT_EQ(said("post"), QStringLiteral("refused"));
  EXPECT_EQ(said("at"), QStringLiteral("/pages/page.html"));
  EXPECT_TRUE(waitForGreen());
  EXPECT_EQ(desktop_.opened, QStringList("/first")) << "one that nobody asked for";
  QTest::mouseClick(window_, Qt::LeftButton, {}, inPage_);
  EXPECT_TRUE(waitFor([&] { return desktop_.opened == QStringList({"/first", "/sale"}); }));
  EXPECT_EQ(QGuiApplication::topLevelWindows().size(), 1) << "no dialog, no window";
}

TEST_F(WebTest, APageThatNeverComesIsGivenUp) {
  pages_.orderFault({.kind = Kind::hang, .pathSuffix = "/pages/page.html"});
  show("");
  ASSERT_TRUE(waitForRequest("/pages/page.html"));
  ASSERT_NE(engineView(), nullptr);
  loop_->letTimePass();
  expectEmptyButUsable();
}

TEST_F(WebTest, APageThatFailsLeavesThePlaceEmpty) {
  pages_.orderFault({.kind = Kind::drop, .pathSuffix = "/pages/page.html"});
  show("");
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

TEST_F(WebTest, AServerOfNobodysTrustIsNotAsked) {
  Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane")->remove("ORRELO_SERVICE_URL");
  show("");
  expectEmptyButUsable();
  EXPECT_EQ(pages_.requestCount("/pages/page.html"), 0);
}

TEST_F(WebTest, TheKeyboardGoesInAndOut) {
  show("<input autofocus id=a><input id=b><script>b.onfocus = () => say({focus: 'b'})</script>");
  ASSERT_TRUE(waitForGreen());
  const auto isInPage = [&] { return engineView()->hasActiveFocus(); };
  EXPECT_FALSE(isInPage());
  const auto tabUntil = [&](const std::function<bool()>& holds) {
    for (int i = 0; i < 6 && !holds(); ++i) {
      press(Qt::Key_Tab);
      if (QTest::qWaitFor(holds, 300)) break;
    }
    return holds();
  };
  EXPECT_TRUE(tabUntil(isInPage));
  EXPECT_TRUE(tabUntil([&] { return pages_.requestCount("/pages/said") > 0; }));
  EXPECT_TRUE(tabUntil([&] { return focusName() == button; }));
  press(Qt::Key_Backtab);
  EXPECT_TRUE(waitFor(isInPage));
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return named(button) == nullptr; }));
}

TEST_F(WebTest, AWheelScrollsThePageWhileItCanAndThenTheScreen) {
  open({390, 300});
  show(
      "<div style='height:300px'></div><script>onscroll = () => {"
      " if (scrollY >= 60) say({end: scrollY}) }</script>");
  ASSERT_TRUE(waitForGreen());
  const auto top = [&] { return named(button)->mapToScene({0, 0}).y(); };
  ASSERT_TRUE(waitFor([&] { return engineView()->property("contentsSize").toSizeF().height() == 300.0; }));
  const double before = top();
  turnWheel(inPage_, -120);
  EXPECT_EQ(said("end"), QStringLiteral("60"));
  EXPECT_EQ(top(), before);
  EXPECT_TRUE(waitFor([&] {
    turnWheel(inPage_, -120);
    return top() < before;
  }));
}

}  // namespace
}  // namespace orrelo::test

#include "WebTest.moc"

#pragma once

#include "DevService.h"
#include "QuickTest.h"
#include "WebPages.h"
#include "support/Twins.h"

#include <orrelo/MainLoop.h>

#include <QDesktopServices>
#include <QUrlQuery>
#include <fstream>
#include <mutex>

namespace orrelo::test {

inline const QString button = QStringLiteral("참여하기");
inline const QColor green(0x10, 0xA0, 0x50);

/// The event loop, except that delays of half a minute and more end when the test calls `letTimePass`.
class LongDelayLoop final : public MainLoop {
 public:
  explicit LongDelayLoop(std::shared_ptr<MainLoop> loop) : loop_(std::move(loop)) {}

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

/// Replaces the machine's browser.
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

/// The folders of the engine's profile; a process has only one profile.
class StoreFolders final : public Directories {
 public:
  std::filesystem::path data() const override { return folder() / "data"; }
  std::filesystem::path cache() const override { return folder() / "cache"; }

 private:
  static const TemporaryFolder& folder() {
    static const TemporaryFolder folder;
    return folder;
  }
};

/// Web pages in a real engine, from a real server. A page reports results by requests for "/pages/said" with
/// a query.
class WebTest : public QuickTest {
 protected:
  WebTest()
      : QuickTest([](Platform& platform) {
          platform.mainLoop = std::make_shared<LongDelayLoop>(platform.mainLoop);
          platform.device = std::make_shared<FixedDevice>();
          platform.directories = std::make_shared<StoreFolders>();
        }) {
    pages_.start();
    const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
    suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
    suite->set("ORRELO_DEVELOPMENT_URL", pages_.baseUrl());
    suite->set("ORRELO_DEVELOPMENT_CA", pages_.certificatePath().string());
  }

  /// Shows a green page with this body in a web block of this height.
  void show(const std::string& body, int height = 240) {
    const auto folder = folder_.path() / "scenario/pages";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "page.html")
        << "<!doctype html><meta charset=utf-8><title>안내</title>"
           "<style>html{background:#10a050}body{margin:0}</style><script>"
           "const say = (what) => { const r = new XMLHttpRequest();"
           " r.open('GET', '/pages/said?' + new URLSearchParams(what), false); r.send() }</script>"
        << body;
    service_->answers["/campaigns/c-1"] = {
        200, campaignReply(pageWithWebBlock(pages_.baseUrl() + "/pages/page.html", height))};
    service_->answers["/join"] = {500, ""};
    showCampaign();
    ASSERT_TRUE(waitForNamed(button));
  }
  bool waitForRequest(const std::string& path) {
    return waitFor([&] { return pages_.requestCount(path) > 0; });
  }
  /// The first value that the page reported under this name; waits for it.
  QString said(const QString& name) {
    auto found = QStringLiteral("nothing");
    waitFor([&] {
      for (const auto& request : pages_.requests()) {
        if (request.path != "/pages/said") continue;
        const QUrlQuery query(QUrl(QString::fromStdString(request.target)));
        if (!query.hasQueryItem(name)) continue;
        found = query.queryItemValue(name, QUrl::FullyDecoded);
        return true;
      }
      return false;
    });
    return found;
  }
  bool isLoading() const { return engineView()->property("loading").toBool(); }
  /// Waits longer than the base class, since the engine runs several processes.
  static bool waitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 180'000); }
  QQuickItem* engineView() const { return find(window_->contentItem()); }
  /// The block shows no page any more, and the button below it works.
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

  const QPoint inPage_{195, 180};

  const std::shared_ptr<LongDelayLoop> loop_ =
      std::static_pointer_cast<LongDelayLoop>(Platform::current().mainLoop);
  Desktop desktop_;
  devservice::DevService pages_{
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

}  // namespace orrelo::test

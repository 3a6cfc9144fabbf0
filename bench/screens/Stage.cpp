#include "screens/Stage.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QBuffer>
#include <QImage>
#include <condition_variable>
#include <mutex>

namespace orrelo::bench {

std::string pngFile(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgba(x, y, x ^ y, 255 - x * 255 / width));
  }
  QBuffer file;
  image.save(&file, "PNG");
  return file.data().toStdString();
}

/// The kit's worker pool, which can be waited for.
class Stage::CountedWorkers final : public WorkerPool {
 public:
  explicit CountedWorkers(std::shared_ptr<WorkerPool> pool) : pool_(std::move(pool)) {}

  void post(QualityOfService quality, Task task) override { pool_->post(quality, counted(std::move(task))); }
  void postDecoding(Task task) override { pool_->postDecoding(counted(std::move(task))); }
  void postAfter(QualityOfService quality, std::chrono::microseconds delay, Task task) override {
    pool_->postAfter(quality, delay, std::move(task));
  }
  void wait() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return running_ == 0; });
  }

 private:
  /// The task, which counts as running from now on.
  Task counted(Task task) {
    const std::lock_guard lock(mutex_);
    ++running_;
    return [this, task = std::move(task)] {
      task();
      const std::lock_guard finished(mutex_);
      if (--running_ == 0) idle_.notify_all();
    };
  }

  const std::shared_ptr<WorkerPool> pool_;
  std::mutex mutex_;
  std::condition_variable idle_;
  int running_ = 0;
};

void Stage::waitForWorkers() {
  workers_->wait();
}

Stage& Stage::shared() {
  static auto* const stage = new Stage;
  return *stage;
}

Stage::Stage() {
  auto platform = quick::platform(
      {.bundleIdentifier = "bench", .dataDirectory = folder_.path(), .cacheDirectory = folder_.path()});
  service_ = std::make_shared<test::Service>(platform.mainLoop);
  platform.urlSession = service_;
  workers_ = std::make_shared<CountedWorkers>(platform.workers);
  platform.workers = workers_;
  platform.displayLink = display_;
  Platform::install(std::move(platform));
  Orrelo::initialize(ORLConfig("bench-app"));
  Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::unknown, {}));
  engine_.loadData(QByteArray("import QtQuick\nimport Orrelo\nWindow { ") + windowSize +
                   "; visible: true; OrreloHost { anchors.fill: parent } }");
  window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().value(0));
  if (window_ == nullptr) std::abort();
  QObject::connect(window_, &QQuickWindow::frameSwapped, window_, [this] { ++frames_; });
  runUntil([this] { return frames_ > 0; });
}

double Stage::open(const std::string& id) {
  const auto start = std::chrono::steady_clock::now();
  Orrelo::showCampaign(id, host());
  return waitForNewContent(nullptr, start);
}

void Stage::close() {
  const std::weak_ptr<ViewController> gone = host()->presentedViewController();
  const auto framesBefore = frames_;
  host()->dismiss(false);
  runUntil([&] { return gone.expired() && frames_ > framesBefore; });
}

void Stage::passThroughBackground() {
  window_->hide();
  QCoreApplication::processEvents();
  const auto framesBefore = frames_;
  window_->show();
  runUntil([&] { return frames_ > framesBefore; });
}

std::shared_ptr<ViewController> Stage::host() const {
  return quick::hostViewController(window_);
}

std::shared_ptr<CampaignViewController> Stage::screen() const {
  return std::dynamic_pointer_cast<CampaignViewController>(host()->presentedViewController());
}

void Stage::waitForFrame(const std::vector<reactive::Observable<reactive::Unit>>& changes,
                         const std::function<bool()>& holds) {
  std::optional<std::size_t> framesBefore;
  std::vector<reactive::Disposable> subscriptions;
  for (const auto& each : changes) {
    subscriptions.push_back(each.subscribe([&](reactive::Unit) {
      if (!framesBefore && holds()) framesBefore = frames_;
    }));
  }
  runUntil([&] { return framesBefore && frames_ > *framesBefore; });
  for (const auto& subscription : subscriptions) subscription.dispose();
}

double Stage::waitForNewContent(const std::shared_ptr<View>& content,
                                std::chrono::steady_clock::time_point start) {
  waitForFrame({screen()->stateChanges()}, [&] { return screen()->state().content != content; });
  return secondsSince(start) * 1e3;
}

}  // namespace orrelo::bench

#include "Showroom.h"

#include "Browser.h"

#include <orrelo/Orrelo.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/quick/OrreloQuick.h>

#include <atomic>
#include <utility>

namespace orrelo::showroom {
namespace {

using Moment = std::chrono::system_clock::time_point;

}  // namespace

// Fixes the wall clock at one moment. The steady clock, which timers use, runs on.
class Showroom::StoppedClock final : public Clock {
 public:
  StoppedClock(Moment now, std::shared_ptr<Clock> running)
      : now_(std::chrono::floor<std::chrono::microseconds>(now.time_since_epoch())),
        running_(std::move(running)) {}

  Date now() const override { return Date(now_.load()); }
  std::chrono::microseconds steady() const override { return running_->steady(); }
  void advance(std::chrono::seconds time) { now_ = now_.load() + time; }

 private:
  std::atomic<std::chrono::microseconds> now_;
  const std::shared_ptr<Clock> running_;
};

Showroom::Showroom(const std::filesystem::path& folder, std::optional<Moment> now)
    : service_({.dataDirectory = folder / "service", .now = now}) {
  service_.start();
  Browser::accept(service_.certificatePath());
  auto platform = quick::platform({.bundleIdentifier = "com.example.orrelo-showroom",
                                   .shortVersion = "1.0",
                                   .bundleVersion = "1",
                                   .dataDirectory = folder / "device",
                                   .cacheDirectory = folder / "cache"});
  if (now) {
    clock_ = std::make_shared<StoppedClock>(*now, platform.clock);
    platform.clock = clock_;
    display_ = std::make_shared<FrameDisplay>();
    platform.displayLink = display_;
  } else {
    serviceUrl_ = QString::fromStdString(service_.baseUrl());
  }
  Platform::install(std::move(platform));
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", service_.baseUrl());
  suite->set("ORRELO_DEVELOPMENT_CA", service_.certificatePath().string());
  Orrelo::initialize(ORLConfig("showroom"));
  followNotifications();
}

void Showroom::followNotifications() {
  Orrelo::setPushToken("showroom-on-this-desktop");
  connect(&notifications_, &Notifications::handled, this, [this] {
    const auto user = Platform::current().userDefaults->standard()->text("orrelo_user_id");
    setUser(QString::fromStdString(user.value_or("")));
  });
  if (clock_) return;
  inbox_ = std::make_unique<NotificationInbox>(
      service_.baseUrl(), service_.certificatePath().string(),
      [this](const EventDictionary& payload) { notifications_.receive(payload); });
}

void Showroom::letConfigurationExpire() {
  if (clock_) clock_->advance(std::chrono::seconds(61));
}

void Showroom::letTheNextDayBegin() {
  if (clock_) clock_->advance(std::chrono::hours(24));
}

void Showroom::tickDisplay() {
  if (display_) display_->tick();
}

QString Showroom::newsUrl() const {
#ifdef SHOWROOM_HAS_WEB
  return QString::fromStdString(service_.baseUrl() + "/pages/news.html");
#else
  return {};
#endif
}

void Showroom::setUser(const QString& user) {
  if (user == user_) return;
  user_ = user;
  Q_EMIT userChanged();
}

}  // namespace orrelo::showroom

#include "Showroom.h"

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

// Grants the consent that the marketing campaign's button asks the host for.
class Showroom::Consent final : public ORLOptInMarketingCampaignDelegate {
 public:
  explicit Consent(Showroom& showroom) : showroom_(showroom) {}
  void onMoveButtonTapped(const std::shared_ptr<ViewController>&) override { showroom_.giveConsent(); }

 private:
  Showroom& showroom_;
};

Showroom::Showroom(const std::filesystem::path& folder, std::optional<Moment> now)
    : service_({.dataDirectory = folder / "service", .now = now}),
      consent_(std::make_shared<Consent>(*this)) {
  service_.start();
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
  Orrelo::setOptInMarketingCampaignDelegate(consent_);
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

void Showroom::signIn(const QString& user) {
  Orrelo::setUser(ORLUser(user.toStdString(), ORLMarketingStatus::optIn, {}));
  setUser(user);
}

void Showroom::signOut() {
  Orrelo::setUser(std::nullopt);
  setUser({});
}

void Showroom::setUser(const QString& user) {
  if (user == user_) return;
  user_ = user;
  Q_EMIT userChanged();
}

void Showroom::buy() {
  Orrelo::sendEvent("purchase", {{"item", "blue shoes"}, {"price", 39.9}});
  ++eventCount_;
  Q_EMIT eventCountChanged();
}

void Showroom::openCampaign(const QString& id) {
  Orrelo::showCampaign(id.toStdString(), quick::hostViewController(window_));
}

void Showroom::openPage(const QString& id) {
  Orrelo::showPage(id.toStdString());
}

void Showroom::openHome() {
  Orrelo::showHome(quick::hostViewController(window_));
}

void Showroom::showMessages() {
  Orrelo::showInAppMessage(quick::hostViewController(window_));
}

void Showroom::didSignIn(const QString& user) {
  setUser(user);
}

void Showroom::giveConsent() {
  hasConsent_ = true;
  Q_EMIT hasConsentChanged();
}

void Showroom::presentAttendance() {
  quick::present(window_, Orrelo::getCampaignViewController(ORLCampaignType::attendance));
}

}  // namespace orrelo::showroom

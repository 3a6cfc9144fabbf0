#include "Showroom.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

namespace orrelo::showroom {

// Where the kit hands over to the host.
class Showroom::Consent final : public ORLOptInMarketingCampaignDelegate {
 public:
  explicit Consent(Showroom& showroom) : showroom_(showroom) {}
  void onMoveButtonTapped(const std::shared_ptr<ViewController>&) override { showroom_.giveConsent(); }

 private:
  Showroom& showroom_;
};

Showroom::Showroom(const std::filesystem::path& folder)
    : service_({.dataDirectory = folder / "service"}), consent_(std::make_shared<Consent>(*this)) {
  service_.start();
  Platform::install(quick::platform({.bundleIdentifier = "com.example.orrelo-showroom",
                                     .shortVersion = "1.0",
                                     .bundleVersion = "1",
                                     .dataDirectory = folder / "device",
                                     .cacheDirectory = folder / "cache"}));
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", service_.baseUrl());
  suite->set("ORRELO_DEVELOPMENT_CA", service_.certificatePath().string());
  Orrelo::initialize(ORLConfig("showroom"));
  Orrelo::setOptInMarketingCampaignDelegate(consent_);
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

void Showroom::giveConsent() {
  hasConsent_ = true;
  Q_EMIT hasConsentChanged();
}

void Showroom::presentAttendance() {
  quick::present(window_, Orrelo::getCampaignViewController(ORLCampaignType::attendance));
}

}  // namespace orrelo::showroom

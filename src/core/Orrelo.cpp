#include "core/InitializedOrrelo.h"
#include "core/base/Logger.h"
#include "core/base/Utf8.h"
#include "core/model/Delegates.h"
#include "core/model/UserManager.h"
#include "events/EventValueDescription.h"
#include "events/KelsoInsight.h"
#include "network/KelsoMutator.h"
#include "platform/URLSession.h"

#include <orrelo/Orrelo.h>

#include <mutex>
#include <string>
#include <utility>

namespace orrelo {
namespace {

struct Slot {
  std::mutex mutex;
  std::shared_ptr<InitializedOrrelo> instance;
};

Slot& slot() {
  static auto* const slot = new Slot;
  return *slot;
}

std::shared_ptr<InitializedOrrelo> currentInstance() {
  const std::lock_guard lock(slot().mutex);
  return slot().instance;
}

// The guard of every operation that needs the instance: null, with a log line, where there is none.
std::shared_ptr<InitializedOrrelo> initializedInstance(std::string_view operation) {
  if (auto instance = currentInstance()) return instance;
  log(LogLevel::ERROR, [operation] {
    return "Orrelo SDK is not initialized. Call Orrelo.initialize() before " + std::string(operation);
  });
  return currentInstance();  // another thread may have initialized meanwhile
}

}  // namespace

void Orrelo::initialize(const ORLConfig& config) {
  const auto& platform = Platform::current();
  const KelsoMutator mutator(platform.userDefaults->suite(KelsoMutator::suiteName));
  const auto serviceUrl = mutator.serviceUrl();
  if (const auto file = mutator.certificateFile()) platform.urlSession->trust(serviceUrl, *file);
  const auto baseUrl = serviceUrl + "/orreloservice/";

  auto instance = std::make_shared<InitializedOrrelo>(std::make_unique<OrreloComponent>(config, baseUrl));
  {
    const std::lock_guard lock(slot().mutex);
    std::swap(slot().instance, instance);
  }
  instance.reset();  // the former one goes here, outside the lock
  KelsoInsight::setUp(config.appKey(), baseUrl);
}

void Orrelo::setUser(const std::optional<ORLUser>& user) {
  if (user) {
    auto values = user->properties();
    if (user->marketingStatus() != ORLMarketingStatus::unknown) {
      values["opt_in_marketing"] = user->marketingStatus() == ORLMarketingStatus::optIn ? "true" : "false";
    }
    values["user_id"] = user->userId();
    // Deliberately before the current user changes: the event goes out under the id of the user before.
    sendEvent("ol_set_user_profile", std::move(values));
  }
  const auto userId = user ? std::optional(utf8::repaired(user->userId())) : std::nullopt;
  UserManager().setUserId(userId);
  setCurrentUserId(userId);
}

void Orrelo::sendEvent(std::string_view name) {
  sendEvent(name, {});
}

void Orrelo::sendEvent(std::string_view name, EventValues values) {
  log(LogLevel::TRACE, [&] {
    return "sendEvent(_: values:) is called with name:" + std::string(name) +
           " values:" + description(values);
  });
  const auto instance = initializedInstance("sendEvent(_:values:)");
  if (!instance) return;
  instance->eventMapper.requireSupported(values);
  instance->accept(std::string(name), std::move(values));
}

void Orrelo::showHome(const std::shared_ptr<ViewController>&) {
  initializedInstance("showHome(with:)");
}

void Orrelo::showCampaign(std::string_view, const std::shared_ptr<ViewController>&) {
  initializedInstance("showCampaign(by:with:)");
}

void Orrelo::showCampaign(ORLCampaignType, const std::shared_ptr<ViewController>&) {
  initializedInstance("showCampaign(by:with:)");
}

void Orrelo::showNaverPayExchange(const std::shared_ptr<ViewController>&) {
  initializedInstance("showNaverPayExchange(with:)");
}

void Orrelo::showPage(std::string_view) {
  initializedInstance("showPage(by:)");
}

void Orrelo::showInAppMessage(const std::shared_ptr<ViewController>&) {
  initializedInstance("showInAppMessage(with:)");
}

void Orrelo::setDeviceToken(const std::vector<std::byte>&) {
  initializedInstance("setDeviceToken(_:)");
}

void Orrelo::setPushToken(std::string_view) {
  initializedInstance("setPushToken(_:)");
}

void Orrelo::userNotificationCenter(const NotificationResponse&, std::function<void()>) {
  initializedInstance("userNotificationCenter(_:didReceive:withCompletionHandler:)");
}

void Orrelo::application(const EventDictionary&, IOrrelo::FetchCompletion) {
  initializedInstance("application(_:didReceiveRemoteNotification:fetchCompletionHandler:)");
}

std::shared_ptr<ORLUserEventDelegate> Orrelo::userEventDelegate() {
  return orrelo::userEventDelegate();
}

void Orrelo::setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate) {
  orrelo::setUserEventDelegate(delegate);
}

std::shared_ptr<ORLOptInMarketingCampaignDelegate> Orrelo::optInMarketingCampaignDelegate() {
  return orrelo::optInMarketingCampaignDelegate();
}

void Orrelo::setOptInMarketingCampaignDelegate(
    const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate) {
  orrelo::setOptInMarketingCampaignDelegate(delegate);
}

}  // namespace orrelo

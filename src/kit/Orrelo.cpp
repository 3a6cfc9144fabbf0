#include "base/Logger.h"
#include "base/Utf8.h"
#include "campaign/ItunesAPIService.h"
#include "events/EventValueDescription.h"
#include "events/KelsoInsight.h"
#include "kit/BIEventComponent.h"
#include "kit/InitializedOrrelo.h"
#include "model/Delegates.h"
#include "model/UserManager.h"
#include "network/KelsoMutator.h"
#include "platform/URLSession.h"
#include "ui/NavigationController.h"
#include "viewkit/ErrorViewController.h"

#include <orrelo/Orrelo.h>

#include <string>
#include <utility>

namespace orrelo {
namespace {

// The guard of every operation that needs the instance: false, with a log line, where there is none.
bool isInitialized(std::string_view operation) {
  if (InitializedOrrelo::hasCurrent()) return true;
  log(LogLevel::ERROR, [operation] {
    return "Orrelo SDK is not initialized. Call Orrelo.initialize() before " + std::string(operation);
  });
  return InitializedOrrelo::hasCurrent();  // another thread may have initialized meanwhile
}

std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() {
  return InitializedOrrelo::current()->component->campaignComponent().campaignViewControllerFactory;
}

std::shared_ptr<ViewController> makeErrorScreen() {
  // Deliberately not spelled as the text of an error.
  return std::make_shared<ErrorViewController>("잠시 후 다시 시도해주세요.");
}

// Screens belong to the main thread; a call from another is posted there.
void onMainThread(std::function<void()> task) {
  const auto& mainLoop = Platform::current().mainLoop;
  if (mainLoop->isCurrent()) {
    task();
  } else {
    mainLoop->post(std::move(task));
  }
}

void show(const std::shared_ptr<ViewController>& screen, const std::shared_ptr<ViewController>& with) {
  if (!with) return;
  if (const auto navigation = with->navigationController()) {
    navigation->pushViewController(screen, true);
  } else {
    with->present(screen, true);
  }
}

}  // namespace

void Orrelo::initialize(const ORLConfig& config) {
  const auto& platform = Platform::current();
  platform.userDefaults->refresh();
  const KelsoMutator mutator(platform.userDefaults->suite(KelsoMutator::suiteName));
  const auto serviceUrl = mutator.serviceUrl();
  if (const auto file = mutator.certificateFile()) platform.urlSession->trust(serviceUrl, *file);
  const auto baseUrl = serviceUrl + "/orreloservice/";

  // The development service stands in for the store too.
  const auto storeUrl = mutator.isDevelopment() ? serviceUrl : ItunesAPIServiceImpl::storeUrl;
  InitializedOrrelo::makeCurrent(
      std::make_shared<InitializedOrrelo>(std::make_unique<OrreloComponent>(config, baseUrl, storeUrl)));
  KelsoInsight::makeCurrent(
      std::make_shared<KelsoInsight>(BIEventComponent(config.appKey(), baseUrl).saveBIEventUseCase));
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
  if (!isInitialized("sendEvent(_:values:)")) return;
  OLSEventMapper::requireSupported(values);
  InitializedOrrelo::accept(name, std::move(values));
}

void Orrelo::showHome(const std::shared_ptr<ViewController>&) {
  isInitialized("showHome(with:)");
}

void Orrelo::showCampaign(std::string_view id, const std::shared_ptr<ViewController>& with) {
  if (!isInitialized("showCampaign(by:with:)")) return;
  onMainThread([id = std::string(id), with] { show(campaignViewControllerFactory()->make(id), with); });
}

std::shared_ptr<ViewController> Orrelo::getCampaignViewController(std::string_view id) {
  if (!isInitialized("getCampaignViewController(by:)")) return makeErrorScreen();
  return campaignViewControllerFactory()->make(std::string(id));
}

void Orrelo::showCampaign(ORLCampaignType type, const std::shared_ptr<ViewController>& with) {
  if (!isInitialized("showCampaign(by:with:)")) return;
  onMainThread([type, with] {
    const auto screen = campaignViewControllerFactory()->make(type);
    screen->modalPresentationStyle = ModalPresentationStyle::fullScreen;
    show(screen, with);
  });
}

std::shared_ptr<ViewController> Orrelo::getCampaignViewController(ORLCampaignType type) {
  if (!isInitialized("getCampaignViewController(by:)")) return makeErrorScreen();
  const auto screen = campaignViewControllerFactory()->make(type);
  screen->modalPresentationStyle = ModalPresentationStyle::fullScreen;
  return screen;
}

void Orrelo::showNaverPayExchange(const std::shared_ptr<ViewController>&) {
  isInitialized("showNaverPayExchange(with:)");
}

void Orrelo::showPage(std::string_view id) {
  if (!isInitialized("showPage(by:)")) return;
  InitializedOrrelo::current()->component->pageComponent().useCase->execute(std::string(id));
}

void Orrelo::showInAppMessage(const std::shared_ptr<ViewController>&) {
  isInitialized("showInAppMessage(with:)");
}

void Orrelo::setDeviceToken(const std::vector<std::byte>&) {
  isInitialized("setDeviceToken(_:)");
}

void Orrelo::setPushToken(std::string_view) {
  isInitialized("setPushToken(_:)");
}

void Orrelo::userNotificationCenter(const NotificationResponse&, std::function<void()>) {
  isInitialized("userNotificationCenter(_:didReceive:withCompletionHandler:)");
}

void Orrelo::application(const EventDictionary&, IOrrelo::FetchCompletion) {
  isInitialized("application(_:didReceiveRemoteNotification:fetchCompletionHandler:)");
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

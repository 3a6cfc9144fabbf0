#include "base/Ascii.h"
#include "base/Logger.h"
#include "base/Utf8.h"
#include "base/explain.h"
#include "campaign/ItunesAPIService.h"
#include "events/EventIntake.h"
#include "events/EventValueDescription.h"
#include "events/KelsoInsight.h"
#include "events/OLSEventMapper.h"
#include "kit/BIEventComponent.h"
#include "kit/InitializedOrrelo.h"
#include "kit/applicationSuite.h"
#include "kit/diagnostics.h"
#include "kit/explainStart.h"
#include "model/Delegates.h"
#include "model/UserManager.h"
#include "navigation/HomeViewController.h"
#include "network/HttpHeaderGenerator.h"
#include "network/KelsoMutator.h"
#include "platform/threads/onMain.h"
#include "ui/CampaignViewControllerFactory.h"
#include "ui/RunningKit.h"
#include "ui/showScreen.h"
#include "viewkit/ErrorViewController.h"

#include <orrelo/Orrelo.h>
#include <orrelo/platform/EventJournal.h>
#include <orrelo/platform/URLSession.h>

#include <algorithm>
#include <mutex>
#include <string>
#include <utility>

namespace orrelo {
namespace {

std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() {
  return RunningKit::current()->campaignNavigator->campaignViewControllerFactory();
}

std::shared_ptr<OrreloPush> orreloPush() {
  return InitializedOrrelo::current()->component->pushComponent().orreloPush;
}

std::string hexText(const std::vector<std::byte>& bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (const auto byte : bytes) {
    ascii::appendHex(text, std::to_integer<unsigned char>(byte), "0123456789abcdef");
  }
  return text;
}

// A longer time cannot be added to the clock's.
std::chrono::milliseconds clamped(std::chrono::milliseconds timeout) {
  constexpr std::chrono::milliseconds longest = std::chrono::hours(24 * 365);
  return std::clamp(timeout, std::chrono::milliseconds(0), longest);
}

std::shared_ptr<ViewController> makeErrorScreen() {
  // This text deliberately differs from the text of an error.
  return std::make_shared<ErrorViewController>("잠시 후 다시 시도해주세요.");
}

/// The screen that `make` returns, or on a wrong thread one that asks to try again, since screens belong to
/// the main thread.
template <class Make>
std::shared_ptr<ViewController> onMainThread(std::string_view operation, const Make& make) {
  if (Platform::current().mainLoop->isCurrent()) return make();
  explain(ExplanationLevel::error, [operation] {
    return std::string(operation) +
           " is called on a thread that does not run the main loop, and returns an error screen: call it on "
           "the main thread, from a task of the main loop.";
  });
  return makeErrorScreen();
}

}  // namespace

void Orrelo::initialize(const ORLConfig& config) {
  const auto& platform = Platform::current();
  platform.userDefaults->refresh();
  const auto mutator = KelsoMutator::current();
  const auto serviceUrl = mutator.serviceUrl();
  explainStart(config, mutator);
  if (const auto file = mutator.certificateFile()) platform.urlSession->trust(serviceUrl, *file);
  const auto baseUrl = serviceUrl + "/orreloservice/";

  // The development service also replaces the store's lookup.
  const auto storeUrl = mutator.isDevelopment() ? serviceUrl : ItunesAPIServiceImpl::storeUrl;
  auto component = std::make_unique<OrreloComponent>(config, baseUrl, storeUrl);
  const EventIntake::Destination events{component->configComponent().fetchConfigUseCase,
                                        component->eventComponent().saveEventUseCase};
  const auto runningKit = std::make_shared<const RunningKit>(component->runningKit());
  // Concurrent calls must not leave the parts of different trees.
  static auto* const mutex = new std::mutex;
  const std::lock_guard lock(*mutex);
  if (InitializedOrrelo::current()) {
    explain(ExplanationLevel::warning,
            "Orrelo::initialize is called again: the former kit stops sending, and the new one takes over "
            "what is stored. Call it once, unless the application key changes.");
  }
  const auto deviceId = HttpHeaderGenerator(applicationSuite(config.appKey())).deviceId();
  InitializedOrrelo::makeCurrent(
      std::make_shared<InitializedOrrelo>(std::move(component), environmentOf(config, mutator), deviceId));
  RunningKit::makeCurrent(runningKit);
  KelsoInsight::makeCurrent(
      std::make_shared<KelsoInsight>(BIEventComponent(config.appKey(), baseUrl).saveBIEventUseCase));
  // Last, because adopted events of the kit go to the insight.
  EventIntake::shared().connect(events);
}

void Orrelo::setUser(const std::optional<ORLUser>& user) {
  if (user) {
    auto values = user->properties();
    if (user->marketingStatus() != ORLMarketingStatus::unknown) {
      values["opt_in_marketing"] = user->marketingStatus() == ORLMarketingStatus::optIn ? "true" : "false";
    }
    values["user_id"] = user->userId();
    // Deliberately sent before the current user changes: the event carries the id of the previous user.
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
  if (!RunningKit::isInitialized("sendEvent(_:values:)")) return;
  OLSEventMapper::requireSupported(values);
  EventIntake::shared().accept(name, std::move(values));
}

bool Orrelo::flush(std::chrono::milliseconds timeout) {
  return EventIntake::shared().flush(clamped(timeout));
}

void Orrelo::flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion) {
  if (!completion) completion = [](bool) {};
  EventIntake::shared().flush(clamped(timeout), std::move(completion));
}

ORLDiagnostics Orrelo::diagnostics(ORLDiagnostics::UserIdentity identity) {
  return takeDiagnostics(identity);
}

void Orrelo::showHome(const std::shared_ptr<ViewController>& with) {
  RunningKit::showHome(with);
}

std::shared_ptr<ViewController> Orrelo::getHomeViewController() {
  return onMainThread("getHomeViewController", &HomeViewController::create);
}

void Orrelo::showCampaign(std::string_view id, const std::shared_ptr<ViewController>& with) {
  RunningKit::showCampaign(std::string(id), with);
}

std::shared_ptr<ViewController> Orrelo::getCampaignViewController(std::string_view id) {
  return onMainThread("getCampaignViewController", [id]() -> std::shared_ptr<ViewController> {
    if (!RunningKit::isInitialized("getCampaignViewController(by:)")) return makeErrorScreen();
    return campaignViewControllerFactory()->make(std::string(id));
  });
}

void Orrelo::showCampaign(ORLCampaignType type, const std::shared_ptr<ViewController>& with) {
  if (!RunningKit::isInitialized("showCampaign(by:with:)")) return;
  explainMissingScreen(with, "showCampaign");
  onMain(*Platform::current().mainLoop, [type, with] {
    const auto screen = campaignViewControllerFactory()->make(type);
    screen->modalPresentationStyle = ModalPresentationStyle::fullScreen;
    showScreen(screen, with);
  });
}

std::shared_ptr<ViewController> Orrelo::getCampaignViewController(ORLCampaignType type) {
  return onMainThread("getCampaignViewController", [type]() -> std::shared_ptr<ViewController> {
    if (!RunningKit::isInitialized("getCampaignViewController(by:)")) return makeErrorScreen();
    const auto screen = campaignViewControllerFactory()->make(type);
    screen->modalPresentationStyle = ModalPresentationStyle::fullScreen;
    return screen;
  });
}

void Orrelo::showNaverPayExchange(const std::shared_ptr<ViewController>& with) {
  if (!RunningKit::isInitialized("showNaverPayExchange(with:)")) return;
  explainMissingScreen(with, "showNaverPayExchange");
  onMain(*Platform::current().mainLoop, [with] {
    InitializedOrrelo::current()->component->externalPointComponent().router->route(
        with, [] { log(LogLevel::DEBUG, "Route to NaverPay Exchanage success"); },
        [](const Error& error) {
          log(LogLevel::ERROR,
              [&] { return "Route to NaverPay Exchanage error: " + error.localizedDescription(); });
        });
  });
}

void Orrelo::showPage(std::string_view id) {
  if (!RunningKit::isInitialized("showPage(by:)")) return;
  InitializedOrrelo::current()->component->pageComponent().useCase->execute(std::string(id));
}

void Orrelo::showInAppMessage(const std::shared_ptr<ViewController>& with) {
  if (!RunningKit::isInitialized("showInAppMessage(with:)")) return;
  const auto navigator = InitializedOrrelo::current()->component->inAppMessageComponent().navigator;
  const auto userId = currentUserId();
  explainMissingScreen(with, "showInAppMessage");
  if (!userId) {
    return explain(ExplanationLevel::warning,
                   "showInAppMessage shows nothing, since nobody is signed in: call Orrelo::setUser first.");
  }
  if (navigator->skipTimeCheckService->hasSkippedToday()) {
    return explain(ExplanationLevel::info,
                   "showInAppMessage shows nothing, since the user has declined messages for today.");
  }
  onMain(*Platform::current().mainLoop,
         [navigator, with, userId = *userId] { navigator->show(with, userId); });
}

void Orrelo::setDeviceToken(const std::vector<std::byte>& token) {
  if (!RunningKit::isInitialized("setDeviceToken(_:)")) return;
  orreloPush()->setToken({hexText(token)});
}

void Orrelo::setPushToken(std::string_view token) {
  if (!RunningKit::isInitialized("setPushToken(_:)")) return;
  orreloPush()->setToken({utf8::repaired(token)});
}

void Orrelo::userNotificationCenter(const NotificationResponse& response, std::function<void()> completion) {
  if (!RunningKit::isInitialized("userNotificationCenter(_:didReceive:withCompletionHandler:)")) return;
  orreloPush()->handle(response, std::move(completion));
}

void Orrelo::application(const EventDictionary& userInfo, IOrrelo::FetchCompletion completion) {
  if (!RunningKit::isInitialized("application(_:didReceiveRemoteNotification:fetchCompletionHandler:)")) {
    return;
  }
  orreloPush()->handle(userInfo, std::move(completion));
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

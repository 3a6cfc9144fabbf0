#pragma once

#include <orrelo/EventValue.h>
#include <orrelo/Export.h>
#include <orrelo/IOrrelo.h>
#include <orrelo/MainLoop.h>
#include <orrelo/ORLCampaignType.h>
#include <orrelo/ORLConfig.h>
#include <orrelo/ORLDelegates.h>
#include <orrelo/ORLDiagnostics.h>
#include <orrelo/ORLExplanations.h>
#include <orrelo/ORLLogger.h>
#include <orrelo/ORLUser.h>
#include <orrelo/ORLUserEvent.h>
#include <orrelo/Platform.h>
#include <orrelo/UnsupportedEventValueException.h>
#include <orrelo/UserDefaults.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

/// The kit for C++ hosts. Start with Orrelo and Platform.
namespace orrelo {

/// The kit's entry point for hosts. All operations are static; there is no instance.
///
/// Threads: any thread may call any operation, except the `get…ViewController` operations, which must be
/// called on the main thread. The `show…` operations show their screen on the main thread: immediately when
/// called there, otherwise in a task posted to the main loop; `showPage`, `showHome` and `showInAppMessage`
/// ask the service first. `userNotificationCenter` and `application` do their work on the main thread in the
/// same way. No operation waits for a file or for the network, except that `initialize`, `setUser` and the
/// opening of a notification read and write small settings files, that an event's record is written to the
/// system's memory of a file, and that `flush` waits as long as it is told to. Call `initialize` once and
/// early.
///
/// Before `initialize`, an operation that needs it does nothing but write a log line. Null screens and
/// completions are allowed everywhere: then nothing is shown or called.
///
/// Errors: an event value of an unsupported type throws UnsupportedEventValueException; no other exception is
/// ever thrown. Internal failures are reported by lines alone: ORLExplanations says what failed and what to
/// do, ORLLogger prints a fixed set of lines.
///
/// A complete host:
///
///     #include <orrelo/Orrelo.h>
///
///     int main() {
///       using namespace orrelo;
///       Platform::install(Platform::posix({.bundleIdentifier = "com.example.shop"}));
///       Orrelo::initialize(ORLConfig("my-app-key"));
///       Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::optIn, {{"level", 3}}));
///       Orrelo::sendEvent("purchase", {{"item", "blue shoes"}, {"price", 39.9}});
///       RunLoop::main().run();
///     }
class ORRELO_EXPORT Orrelo final {
 public:
  Orrelo() = delete;

  /// The same operations as an interface.
  static IOrrelo& asInterface();

  /// Builds the kit for the application identified by `config` and starts its background work. Reports no
  /// result. A second call replaces the first: events stored so far are kept and are sent to the new
  /// application. Aborts the process if the app key is not a valid name for a suite of user defaults (see
  /// UserDefaultsFactory::suite).
  static void initialize(const ORLConfig& config);

  /// Sets the current user; nullopt means that nobody is signed in. Each call with a user reports the event
  /// "ol_set_user_profile" with the user's properties, "user_id", and "opt_in_marketing" if that is known;
  /// the event itself carries the id of the previous user. Before `initialize` the event is dropped with a
  /// log line. Throws as `sendEvent` does, and then leaves the current user unchanged.
  static void setUser(const std::optional<ORLUser>& user);

  /// Reports an action of the user. The event carries the current time and the current user. When the call
  /// returns, the event survives the end of the process, however it ends (see docs/events.md). It is stored
  /// and sent in the background, unless the service has disabled the kit or its configuration was never
  /// fetched.
  static void sendEvent(std::string_view name);
  /// The values are converted to texts in the background; moving them in avoids a copy. Throws
  /// UnsupportedEventValueException for null, bytes and unknown types at the top level. A collection that
  /// contains a value without a JSON form is left out.
  static void sendEvent(std::string_view name, EventValues values);

  /// Waits until all events that were reported before the call, the kit's own included, are committed to the
  /// store or dropped by the configuration; it does not send them. True at once if nothing is on its way, as
  /// before `initialize`. False at the timeout (a negative one counts as 0) and at once on a thread of the
  /// kit, such as that of a completion, and in a forked child. A host needs it before it copies or removes
  /// the kit's files, not in order to exit.
  static bool flush(std::chrono::milliseconds timeout);
  /// Returns at once and calls `completion` with the result, once, on a thread of the kit; never if the
  /// process ends before, and never in a forked child.
  static void flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion);

  /// What the kit knows about itself now, for a support page or a report: versions, environment,
  /// configuration, pipelines, the last requests and pages. It takes a fraction of a millisecond and asks
  /// nobody. Before `initialize`, and in a forked child, it has little more than the kit's version.
  static ORLDiagnostics diagnostics(
      ORLDiagnostics::UserIdentity identity = ORLDiagnostics::UserIdentity::hashed);

  /// Opens home for the current user from the host's screen `with`: the user's rewards above the list of
  /// campaigns. If the application has no rewards and the user exactly one campaign, opens that campaign
  /// instead. The service is asked first; if that fails, or if nobody is signed in, an error screen opens.
  /// Pushes or presents as `showCampaign` does.
  static void showHome(const std::shared_ptr<ViewController>& with);
  /// The home screen, for the host to show through its front. Never null: a screen that loads before
  /// `initialize` asks to try again. Main thread only.
  static std::shared_ptr<ViewController> getHomeViewController();
  /// Opens a campaign from the host's screen `with`: pushes it on that screen's navigation stack, or presents
  /// it over the screen if there is no stack. Does nothing if `with` is null.
  static void showCampaign(std::string_view id, const std::shared_ptr<ViewController>& with);
  /// Opens the first campaign of this type that the service lists for the current user.
  static void showCampaign(ORLCampaignType type, const std::shared_ptr<ViewController>& with);
  /// The campaign's screen, for the host to show through its front (`orrelo::quick::present` or `push` with
  /// Qt Quick). Never null: before `initialize` it is a screen that asks to try again. Main thread only.
  static std::shared_ptr<ViewController> getCampaignViewController(std::string_view id);
  static std::shared_ptr<ViewController> getCampaignViewController(ORLCampaignType type);
  /// Presents the page of the external service where points are exchanged over the host's screen `with`, if
  /// the service's configuration enables it. The result is reported in the log. The page is shown by
  /// `orrelo::web`; without it the screen stays empty and can be closed.
  static void showNaverPayExchange(const std::shared_ptr<ViewController>& with);
  /// Opens the page that the service's configuration assigns to `id`, over the current screen: a campaign, a
  /// screen of the kit, or a deep link of the host. A page that cannot be opened is reported in the log.
  static void showPage(std::string_view id);
  /// Presents the banners that the service has for the current user over the host's screen `with`: pictures
  /// that lead to campaigns. Shows nothing if nobody is signed in, if the user has declined messages today,
  /// if there are none, or if the service cannot be reached; also if `with` presents another screen by then.
  static void showInAppMessage(const std::shared_ptr<ViewController>& with);

  /// Sets the platform's raw device token, as `setPushToken` does with its lower-case hexadecimal digits.
  static void setDeviceToken(const std::vector<std::byte>& token);
  /// Sets the token under which the platform's push service knows this installation. Each new token and each
  /// further `setUser` with a user uploads the latest of both, once both were set after `initialize`. A
  /// failed upload is logged, and ends the uploading until the next `initialize`. A malformed sequence of
  /// UTF-8 becomes U+FFFD. See docs/push.md.
  static void setPushToken(std::string_view token);
  /// Handles a notification that the user tapped. If its payload has the key "Orrelo", makes the last user
  /// the current one, opens the page that the payload names over the topmost screen, and calls `completion`
  /// on the main thread. Without a window no page opens. A payload without the key is left to the host, and
  /// so is every payload before `initialize`: the completion is not called then.
  static void userNotificationCenter(const NotificationResponse& response, std::function<void()> completion);
  /// Handles a notification that arrived: like `userNotificationCenter`, and so opens the page too. The
  /// completion gets `noData`.
  static void application(const EventDictionary& userInfo, IOrrelo::FetchCompletion completion);

  /// Held weakly; may be set before `initialize`.
  static std::shared_ptr<ORLUserEventDelegate> userEventDelegate();
  static void setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate);
  /// Held weakly; may be set before `initialize`.
  static std::shared_ptr<ORLOptInMarketingCampaignDelegate> optInMarketingCampaignDelegate();
  static void setOptInMarketingCampaignDelegate(
      const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate);
};

}  // namespace orrelo

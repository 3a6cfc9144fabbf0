#pragma once

#include <orrelo/EventValue.h>
#include <orrelo/Export.h>
#include <orrelo/IOrrelo.h>
#include <orrelo/MainLoop.h>
#include <orrelo/ORLCampaignType.h>
#include <orrelo/ORLConfig.h>
#include <orrelo/ORLDelegates.h>
#include <orrelo/ORLLogger.h>
#include <orrelo/ORLUser.h>
#include <orrelo/ORLUserEvent.h>
#include <orrelo/Platform.h>
#include <orrelo/UnsupportedEventValueException.h>
#include <orrelo/UserDefaults.h>

#include <memory>
#include <optional>
#include <string_view>

namespace orrelo {

/// The kit, as a host calls it. There is no instance to make: every operation belongs to the class.
///
/// Threads: any thread may call anything but the `get…ViewController` operations, which belong on the main
/// thread. The `show…` operations show their screen on the main thread: at once when called there, else as
/// soon as the main loop runs what was posted to it; `showPage` asks for the service's configuration first.
/// Nothing here waits for a file or for the network, except that `initialize` and `setUser` read and write
/// small settings files. Call `initialize` once and early.
///
/// These do nothing yet, but for their log line before `initialize`: `showHome`, `showNaverPayExchange`,
/// `showInAppMessage`, `setDeviceToken`, `setPushToken`, `userNotificationCenter` and `application`, of which
/// the last two do not call their completions.
///
/// Errors: an event value of an unsupported type throws UnsupportedEventValueException; nothing else is ever
/// raised. What goes wrong inside is told by ORLLogger alone.
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

  /// The same operations behind an interface.
  static IOrrelo& asInterface();

  /// Builds the kit for the application that `config` names and starts its work in the background. It reports
  /// nothing. A second call replaces the first: events stored by then are kept, and go to the new
  /// application. Stops the process for an app key that can name no suite of user defaults (see
  /// UserDefaultsFactory::suite).
  static void initialize(const ORLConfig& config);

  /// Says who uses the application, or with nothing that nobody is signed in. Each call with a user reports
  /// the event "ol_set_user_profile" with the user's properties, "user_id", and "opt_in_marketing" where that
  /// is known; it goes out under the id of the user before. Before `initialize` the event is dropped with a
  /// log line.
  /// Throws as `sendEvent` does, and then leaves the user as it was.
  static void setUser(const std::optional<ORLUser>& user);

  /// Reports what the user did. The event is of this moment and of the current user; it is stored and sent in
  /// the background, unless the service has switched the kit off or its configuration was never reached.
  static void sendEvent(std::string_view name);
  /// The values become texts in the background; moving them in makes the call cheapest. Throws
  /// UnsupportedEventValueException for null, bytes and unknown types at the top level. A collection that
  /// holds what JSON has no form for is left out.
  static void sendEvent(std::string_view name, EventValues values);

  static void showHome(const std::shared_ptr<ViewController>& with);
  /// Opens a campaign from the host's screen `with`: on its navigation stack where it stands on one, else
  /// over it. Nothing happens without a screen.
  static void showCampaign(std::string_view id, const std::shared_ptr<ViewController>& with);
  /// The first campaign of the type that the service lists for the current user.
  static void showCampaign(ORLCampaignType type, const std::shared_ptr<ViewController>& with);
  /// The same screens, for the host to show through the front that it uses: with Qt Quick by
  /// `orrelo::quick::present` or `push`. Never null: before `initialize` a screen that asks to try again. On
  /// the main thread.
  static std::shared_ptr<ViewController> getCampaignViewController(std::string_view id);
  static std::shared_ptr<ViewController> getCampaignViewController(ORLCampaignType type);
  static void showNaverPayExchange(const std::shared_ptr<ViewController>& with);
  /// Opens the page that the service has put behind `id`, over what the user has before them: a campaign, a
  /// screen of the kit, or a deep link of the host. What cannot be opened says so in the log.
  static void showPage(std::string_view id);
  static void showInAppMessage(const std::shared_ptr<ViewController>& with);

  /// The platform's raw device token.
  static void setDeviceToken(const std::vector<std::byte>& token);
  static void setPushToken(std::string_view token);
  /// For a notification that the user tapped. Before `initialize` the completion is not called.
  static void userNotificationCenter(const NotificationResponse& response, std::function<void()> completion);
  /// For a notification that arrived. Before `initialize` the completion is not called.
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

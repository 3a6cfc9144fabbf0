#pragma once

#include <orrelo/BackgroundFetchResult.h>
#include <orrelo/EventValue.h>
#include <orrelo/Export.h>
#include <orrelo/NotificationResponse.h>
#include <orrelo/ORLCampaignType.h>
#include <orrelo/ORLConfig.h>
#include <orrelo/ORLDelegates.h>
#include <orrelo/ORLDiagnostics.h>
#include <orrelo/ORLUser.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

class ViewController;

/// The operations of Orrelo as an interface, for hosts that inject or mock it. `Orrelo::asInterface()`
/// returns the kit's implementation. The operations are documented in Orrelo.
class ORRELO_EXPORT IOrrelo {
 public:
  using FetchCompletion = std::function<void(BackgroundFetchResult)>;

  virtual ~IOrrelo() = default;

  virtual void initialize(const ORLConfig& config) = 0;
  virtual void setUser(const std::optional<ORLUser>& user) = 0;
  virtual void sendEvent(std::string_view name) = 0;
  virtual void sendEvent(std::string_view name, EventValues values) = 0;
  virtual bool flush(std::chrono::milliseconds timeout) = 0;
  virtual void flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion) = 0;

  virtual ORLDiagnostics diagnostics(ORLDiagnostics::UserIdentity) { return {}; }

  virtual void showHome(const std::shared_ptr<ViewController>& with) = 0;
  virtual std::shared_ptr<ViewController> getHomeViewController() = 0;
  virtual void showCampaign(std::string_view id, const std::shared_ptr<ViewController>& with) = 0;
  virtual void showCampaign(ORLCampaignType type, const std::shared_ptr<ViewController>& with) = 0;
  virtual std::shared_ptr<ViewController> getCampaignViewController(std::string_view id) = 0;
  virtual std::shared_ptr<ViewController> getCampaignViewController(ORLCampaignType type) = 0;
  virtual void showNaverPayExchange(const std::shared_ptr<ViewController>& with) = 0;
  virtual void showPage(std::string_view id) = 0;
  virtual void showInAppMessage(const std::shared_ptr<ViewController>& with) = 0;

  virtual void setDeviceToken(const std::vector<std::byte>& token) = 0;
  virtual void setPushToken(std::string_view token) = 0;
  virtual void userNotificationCenter(const NotificationResponse& response,
                                      std::function<void()> completion) = 0;
  virtual void application(const EventDictionary& userInfo, FetchCompletion completion) = 0;

  virtual std::shared_ptr<ORLUserEventDelegate> userEventDelegate() const = 0;
  virtual void setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate) = 0;
  virtual std::shared_ptr<ORLOptInMarketingCampaignDelegate> optInMarketingCampaignDelegate() const = 0;
  virtual void setOptInMarketingCampaignDelegate(
      const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate) = 0;
};

}  // namespace orrelo

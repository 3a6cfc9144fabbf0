#include <orrelo/Orrelo.h>

#include <utility>

namespace orrelo {
namespace {

// Forwards each operation to the static functions of Orrelo.
class OrreloInterface final : public IOrrelo {
 public:
  void initialize(const ORLConfig& config) override { Orrelo::initialize(config); }
  void setUser(const std::optional<ORLUser>& user) override { Orrelo::setUser(user); }
  void sendEvent(std::string_view name) override { Orrelo::sendEvent(name); }
  void sendEvent(std::string_view name, EventValues values) override {
    Orrelo::sendEvent(name, std::move(values));
  }
  bool flush(std::chrono::milliseconds timeout) override { return Orrelo::flush(timeout); }
  void flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion) override {
    Orrelo::flush(timeout, std::move(completion));
  }
  ORLDiagnostics diagnostics(ORLDiagnostics::UserIdentity identity) override {
    return Orrelo::diagnostics(identity);
  }
  void showHome(const std::shared_ptr<ViewController>& with) override { Orrelo::showHome(with); }
  std::shared_ptr<ViewController> getHomeViewController() override { return Orrelo::getHomeViewController(); }
  void showCampaign(std::string_view id, const std::shared_ptr<ViewController>& with) override {
    Orrelo::showCampaign(id, with);
  }
  void showCampaign(ORLCampaignType type, const std::shared_ptr<ViewController>& with) override {
    Orrelo::showCampaign(type, with);
  }
  std::shared_ptr<ViewController> getCampaignViewController(std::string_view id) override {
    return Orrelo::getCampaignViewController(id);
  }
  std::shared_ptr<ViewController> getCampaignViewController(ORLCampaignType type) override {
    return Orrelo::getCampaignViewController(type);
  }
  void showNaverPayExchange(const std::shared_ptr<ViewController>& with) override {
    Orrelo::showNaverPayExchange(with);
  }
  void showPage(std::string_view id) override { Orrelo::showPage(id); }
  void showInAppMessage(const std::shared_ptr<ViewController>& with) override {
    Orrelo::showInAppMessage(with);
  }
  void setDeviceToken(const std::vector<std::byte>& token) override { Orrelo::setDeviceToken(token); }
  void setPushToken(std::string_view token) override { Orrelo::setPushToken(token); }
  void userNotificationCenter(const NotificationResponse& response,
                              std::function<void()> completion) override {
    Orrelo::userNotificationCenter(response, std::move(completion));
  }
  void application(const EventDictionary& userInfo, FetchCompletion completion) override {
    Orrelo::application(userInfo, std::move(completion));
  }
  std::shared_ptr<ORLUserEventDelegate> userEventDelegate() const override {
    return Orrelo::userEventDelegate();
  }
  void setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate) override {
    Orrelo::setUserEventDelegate(delegate);
  }
  std::shared_ptr<ORLOptInMarketingCampaignDelegate> optInMarketingCampaignDelegate() const override {
    return Orrelo::optInMarketingCampaignDelegate();
  }
  void setOptInMarketingCampaignDelegate(
      const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate) override {
    Orrelo::setOptInMarketingCampaignDelegate(delegate);
  }
};

}  // namespace

IOrrelo& Orrelo::asInterface() {
  static auto* const instance = new OrreloInterface;
  return *instance;
}

}  // namespace orrelo

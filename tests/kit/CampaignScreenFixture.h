#pragma once

#include "campaign/CampaignViewController.h"
#include "campaign/attendance/AttendanceCampaignView.h"
#include "support/Reports.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "viewkit/ErrorViewController.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::test {

/// Records the screens that it was called for and the events reported by then.
class Consent final : public ORLOptInMarketingCampaignDelegate {
 public:
  explicit Consent(const Reports& reports) : reports_(reports) {}
  void onMoveButtonTapped(const std::shared_ptr<ViewController>& in) override {
    screens.push_back(in);
    reported = reports_.names;
  }
  std::vector<std::shared_ptr<ViewController>> screens;
  std::vector<std::string> reported;

 private:
  const Reports& reports_;
};

/// Campaign screens opened through the façade; the service replies by path.
class CampaignScreenTest : public testing::Test {
 protected:
  CampaignScreenTest() {
    replies_["/config"] = ScriptedURLSession::reply(200, configReply());
    replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(attendancePage()));
    platform_.session->responder = [this](const URLRequest& request) -> std::optional<URLSessionResult> {
      for (const auto& [path, reply] : replies_) {
        if (request.url.path().ends_with(path)) return reply;
      }
      return ScriptedURLSession::reply(200);
    };
    Orrelo::setUserEventDelegate(reports_);
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
    host_->appear(false);
    platform_.loop->run();
    reports_->names.clear();
  }

  std::shared_ptr<CampaignViewController> open() {
    Orrelo::showCampaign("c-1", host_);
    platform_.loop->run();
    return std::dynamic_pointer_cast<CampaignViewController>(host_->presentedViewController());
  }
  template <class Content>
  static std::shared_ptr<Content> content(const CampaignViewController& screen) {
    return std::dynamic_pointer_cast<Content>(screen.state().content);
  }
  void press(const AttendanceCampaignView& page) {
    page.actionView->onClick();
    platform_.loop->run();
  }
  std::size_t requests(const std::string& path) const { return platform_.session->requestsTo(path).size(); }
  static std::string errorOf(const CampaignViewController& screen) {
    const auto state = screen.errorView->state.value();
    return state.isHidden ? "" : state.text;
  }

  TestPlatform platform_;
  std::map<std::string, std::optional<URLSessionResult>> replies_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

}  // namespace orrelo::test

#include "kit/CampaignScreenFixture.h"

namespace orrelo::test {

CampaignScreenTest::CampaignScreenTest() {
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

CampaignScreenTest::~CampaignScreenTest() = default;

std::shared_ptr<CampaignViewController> CampaignScreenTest::open() {
  Orrelo::showCampaign("c-1", host_);
  platform_.loop->run();
  return std::dynamic_pointer_cast<CampaignViewController>(host_->presentedViewController());
}

void CampaignScreenTest::press(const AttendanceCampaignView& page) {
  page.actionView->onClick();
  platform_.loop->run();
}

std::string CampaignScreenTest::errorOf(const CampaignViewController& screen) {
  const auto& state = screen.errorView->state.value();
  return state.isHidden ? "" : state.text;
}

}  // namespace orrelo::test

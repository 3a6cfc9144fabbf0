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
  CampaignScreenTest();
  ~CampaignScreenTest() override;

  std::shared_ptr<CampaignViewController> open();
  template <class Content>
  static std::shared_ptr<Content> content(const CampaignViewController& screen) {
    return std::dynamic_pointer_cast<Content>(screen.state().content);
  }
  void press(const AttendanceCampaignView& page);
  std::size_t requests(const std::string& path) const { return platform_.session->requestsTo(path).size(); }
  static std::string errorOf(const CampaignViewController& screen);

  TestPlatform platform_;
  std::map<std::string, std::optional<URLSessionResult>> replies_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

}  // namespace orrelo::test

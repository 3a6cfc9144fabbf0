#include "QuickTest.h"
#include "navigation/HomeViewController.h"
#include "support/Reports.h"

#include <array>
#include <utility>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString title = QStringLiteral("이벤트");
const QString first = QStringLiteral("매일, 11월 출석");

/// A reply of "/campaigns" with `count` campaigns, numbered from 1.
std::string campaignsReply(int count) {
  static const std::array<std::pair<const char*, const char*>, 4> texts{
      {{"매일", "11월 출석"},
       {"하루 한 번", "행운의 룰렛"},
       {"친구와 함께", "친구를 초대하면 둘 다 500P"},
       {"긁어 보세요", "가을맞이 즉석 복권"}}};
  std::string campaigns;
  for (int i = 0; i < count; ++i) {
    const auto number = std::to_string(i + 1);
    const auto& [label, name] = texts[static_cast<std::size_t>(i) % texts.size()];
    campaigns += std::string(i == 0 ? "" : ",") + R"({"id":"c-)" + number + R"(","label":")" + label +
                 R"(","name":")" + name + (i < 4 ? "" : " " + number) +
                 R"(","icon":"https://img.example/icon.png","page":)" + resultPage() + "}";
  }
  return "[" + campaigns + "]";
}

class HomeTest : public QuickTest {
 protected:
  HomeTest() {
    service_->answers["/icon.png"] = {200, picture({48, 48}, QColor("#fff1d6"))};
    service_->answers["/campaigns"] = {200, campaignsReply(12)};
    service_->answers["/campaigns/c-1"] = {200, campaignReply(resultPage())};
    Orrelo::setUserEventDelegate(reports_);
  }

  void showHome() { Orrelo::showHome(host()); }
  std::shared_ptr<HomeViewController> home() const {
    return std::dynamic_pointer_cast<HomeViewController>(host()->presentedViewController());
  }
  /// The campaigns that were reported as shown since the last call.
  std::vector<std::string> takeShown() {
    std::vector<std::string> ids;
    for (const auto& event : std::exchange(reports_->events, {})) {
      if (event.name == "ol_campaign_list_item_show")
        ids.push_back(std::get<std::string>(event.values->at("campaign_id").variant()));
    }
    return ids;
  }

  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
};

TEST_F(HomeTest, ShowsTheCampaignsInSightAndOpensTheOneThatIsPressed) {
  showHome();
  ASSERT_TRUE(waitForNamed(first));
  grab("home-390");
  const auto shown = takeShown();
  EXPECT_GE(shown.size(), 5U);
  EXPECT_LT(shown.size(), 12U) << "those below the window are not in sight";
  press(Qt::Key_End);
  settle();
  EXPECT_EQ(takeShown().size(), 12 - shown.size());
  grab("home-390-end");
  press(Qt::Key_Home);
  settle();
  takeShown();
  click(first);
  ASSERT_TRUE(waitFor([&] { return home()->presentedViewController() != nullptr; }));
  settle();
  press(Qt::Key_Escape);
  ASSERT_TRUE(waitFor([&] { return !takeShown().empty(); })) << "each load reports the cells in sight again";
  EXPECT_EQ(service_->timesAsked("/campaigns"), 3);
}

TEST_F(HomeTest, NothingIsCutOnASmallScreenWithLargeText) {
  for (const double scale : {1.0, 2.0}) {
    SCOPED_TRACE(scale);
    open({320, 568}, scale);
    showHome();
    ASSERT_TRUE(waitForNamed(first));
    expectNothingCut();
    const auto shot = QStringLiteral("home-320") + (scale == 1.0 ? "" : "-large-text");
    grab(shot);
    press(Qt::Key_End);
    expectNothingCut();
    grab(shot + "-end");
  }
}

}  // namespace
}  // namespace orrelo::test

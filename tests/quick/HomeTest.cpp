#include "QuickTest.h"
#include "navigation/HomeViewController.h"
#include "support/Reports.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <utility>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString title = QStringLiteral("이벤트");
const QString gifticons = QStringLiteral("기프티콘, 9+");
const QString exchange = QStringLiteral("포인트 전환");
const QString tickets = QStringLiteral("응모권, 3");
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
    service_->answers["/my-rewards"] = {200, R"({"point":12500,"ticket":3,"gifticon":12})"};
    service_->answers["/my-point"] = {
        200,
        R"({"amount":12500,"description":"포인트","point_unit":"P","icon_url":"https://img.example/p.png"})"};
    service_->answers["/p.png"] = {200, picture({64, 64}, QColor("#ffe9a8"))};
    auto config = configReply();
    const std::string off = R"("gifticon":false)";
    service_->answers["/config"] = {200, config.replace(config.find(off), off.size(), R"("gifticon":true)")};
    Orrelo::initialize(ORLConfig("shop"));  // with all plugins
    Orrelo::setUserEventDelegate(reports_);
  }

  void showHome() { Orrelo::showHome(host()); }
  std::shared_ptr<HomeViewController> home() const {
    return std::dynamic_pointer_cast<HomeViewController>(host()->presentedViewController());
  }
  void openHome() {
    showHome();
    ASSERT_TRUE(waitForNamed(first));
    ASSERT_TRUE(waitForNamed(gifticons));
    settle();
  }
  /// The accessible name of the balance.
  QString balance() const {
    const auto all = names();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [](const auto& name) { return name.contains(QStringLiteral("12500")); });
    return found == all.end() ? QString() : *found;
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
  openHome();
  grab("home-390");
  EXPECT_FALSE(takeShown().empty());
  press(Qt::Key_F5);
  std::vector<std::string> shown;
  ASSERT_TRUE(waitFor([&] { return !(shown = takeShown()).empty(); })) << "each load reports them again";
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
  EXPECT_THAT(takeShown(), IsEmpty());
  press(Qt::Key_Escape);
  std::vector<std::string> again;
  EXPECT_TRUE(waitFor([&] { return !(again = takeShown()).empty(); })) << "coming back loads, too";
  EXPECT_EQ(again, shown);
}

TEST_F(HomeTest, NothingIsInSightBehindAMessage) {
  openHome();
  const auto anyInSight = [this] {
    const auto& cells = home()->campaignListViewController()->state().cells;
    return std::any_of(cells.begin(), cells.end(), [](const auto& cell) { return cell->isInSight; });
  };
  press(Qt::Key_End);  // the top of the window crosses a campaign
  settle();
  EXPECT_TRUE(anyInSight());
  service_->answers["/campaigns"] = {500, ""};
  press(Qt::Key_F5);
  ASSERT_TRUE(waitForNamed(QStringLiteral("잠시 후 다시 시도해 주세요.")));
  EXPECT_FALSE(anyInSight());
}

TEST_F(HomeTest, ReadersAndTheKeyboardGoFromTheTitleToTheLastCampaign) {
  openHome();
  const auto all = names();
  qsizetype place = -1;
  for (const auto& name : {title, balance(), gifticons, exchange, tickets, first}) {
    EXPECT_GT(all.indexOf(name), place) << name.toStdString();
    place = all.indexOf(name);
  }
  QStringList focused;
  for (int i = 0; i < 16; ++i) {
    press(Qt::Key_Tab);
    focused.push_back(focusName());
  }
  EXPECT_EQ(focused.mid(0, 5), (QStringList{back, balance(), gifticons, exchange, first}));
  EXPECT_EQ(QSet<QString>(focused.begin(), focused.end()).size(), 16) << "every campaign is reached";
  settle();
  const auto last = sceneRect(window_->activeFocusItem());
  EXPECT_LE(last.bottom(), window_->height()) << "the focus brings it into view";
  press(Qt::Key_Return);
  EXPECT_TRUE(waitFor([&] { return home()->presentedViewController() != nullptr; }));
  settle();
  press(Qt::Key_Escape);
  settle();
  for (const auto& [name, screen] : {std::pair(balance(), "PointRedemptionHistoryViewController"),
                                     std::pair(gifticons, "GifticonViewController")}) {
    named(name)->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    ASSERT_TRUE(waitFor([&] { return home()->presentedViewController() != nullptr; }));
    EXPECT_EQ(home()->presentedViewController()->kind(), screen);
    settle();
    press(Qt::Key_Escape);
    settle();
  }
}

TEST_F(HomeTest, NothingIsCutOnASmallScreenWithLargeText) {
  for (const double scale : {1.0, 2.0}) {
    SCOPED_TRACE(scale);
    open({320, 568}, scale);
    openHome();
    expectNothingCut();
    const auto shot = QStringLiteral("home-320") + (scale == 1.0 ? "" : "-large-text");
    grab(shot);
    press(Qt::Key_End);
    expectNothingCut();
    grab(shot + "-end");
  }
}

TEST_F(HomeTest, APartThatFailsLeavesTheOther) {
  const auto failed = QStringLiteral("잠시 후 다시 시도해 주세요.");
  const auto none = QStringLiteral("진행 중인 캠페인이 없습니다.");
  for (const double scale : {1.0, 2.0}) {
    SCOPED_TRACE(scale);
    const QString size = scale == 1.0 ? "-320" : "-320-large-text";
    service_->answers["/campaigns"] = {200, "[]"};
    open({320, 568}, scale);
    showHome();
    ASSERT_TRUE(waitForNamed(none));
    ASSERT_TRUE(waitForNamed(gifticons));
    grab("home-empty" + size);
    press(Qt::Key_End);
    expectNothingCut();
    EXPECT_GT(sceneRect(named(none)).top(), sceneRect(named(gifticons)).bottom());
    service_->answers["/campaigns"] = {500, ""};
    press(Qt::Key_F5);
    EXPECT_TRUE(waitForNamed(failed));
    service_->answers["/campaigns"] = {200, campaignsReply(1)};
    service_->answers["/my-rewards"] = {500, ""};
    press(Qt::Key_F5);
    EXPECT_TRUE(waitForNamed(first));
    EXPECT_TRUE(waitForNamed(QStringLiteral("리워드 정보를 가져오는데 실패했습니다.")));
    EXPECT_EQ(named(failed), nullptr) << "the message is gone";
    grab("home-rewards-failing" + size);
    service_->answers["/my-rewards"] = {200, R"({"point":12500,"ticket":3,"gifticon":12})"};
  }
}

TEST_F(HomeTest, ANameOfAMebibyteLeavesTheOthersInReach) {
  auto reply = campaignsReply(3);
  const std::string name = "행운의 룰렛";
  reply.replace(reply.find(name), name.size(), std::string(std::size_t{1} << 20, 'x'));
  service_->answers["/campaigns"] = {200, reply};
  openHome();
  EXPECT_TRUE(waitForNamed(QStringLiteral("친구와 함께, 친구를 초대하면 둘 다 500P")));
  grab("home-endless-name");
}

TEST_F(HomeTest, WhatNeverComesDoesNotHoldUpTheRest) {
  service_->answers.erase("/my-rewards");
  showHome();
  ASSERT_TRUE(waitForNamed(first));
  EXPECT_EQ(named(gifticons), nullptr);
  grab("home-without-rewards");
  service_->answerWaiting("/my-rewards", {200, R"({"point":12500,"ticket":3,"gifticon":12})"});
  EXPECT_TRUE(waitForNamed(gifticons));
}

TEST_F(HomeTest, APullLoadsEverythingAgain) {
  openHome();
  const auto lists = service_->timesAsked("/campaigns");
  const auto rewards = service_->timesAsked("/my-rewards");
  QTest::mousePress(window_, Qt::LeftButton, {}, {195, 300});
  for (int y = 300; y <= 640; y += 20) QTest::mouseMove(window_, {195, y});
  QTest::mouseRelease(window_, Qt::LeftButton, {}, {195, 640});
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/campaigns") == lists + 1; }));
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/my-rewards") == rewards + 1; }));
}

}  // namespace
}  // namespace orrelo::test

#include "QuickTest.h"
#include "rewards/RewardViewController.h"
#include "ui/RunningKit.h"

namespace orrelo::test {
namespace {

const QString balance = QStringLiteral("내 포인트, 1250 P");
const QString gifticons = QStringLiteral("기프티콘, 0");
const QString exchange = QStringLiteral("포인트 전환");
const QString tickets = QStringLiteral("응모권, 9+");

class RecordingRouter final : public PageRouter {
 public:
  void route(const std::shared_ptr<ViewController>&, const Page& page) override { routes.push_back(page); }
  std::vector<Page> routes;
};

/// The reward tab alone, as the whole content of a screen.
class RewardTabTest : public QuickTest {
 protected:
  RewardTabTest() {
    auto config = configReply();
    const std::string off = R"("gifticon":false)";
    config.replace(config.find(off), off.size(), R"("gifticon":true)");
    service_->answers["/config"] = {200, config};
    service_->answers["/my-point"] = {
        200,
        R"({"amount":1250,"description":"내 포인트","point_unit":"P","icon_url":"https://cdn.example/gift.png"})"};
    service_->answers["/my-rewards"] = {200, R"({"point":1250,"ticket":27,"gifticon":0})"};
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("u-1", ORLMarketingStatus::unknown, {}));
  }

  void showTab() {
    host()->present(RewardViewController::create(RunningKit::current()->rewardViewModel, router_), false);
  }
  void openTab() {
    showTab();
    ASSERT_TRUE(waitForNamed(tickets));
    settle();
  }

  std::shared_ptr<RecordingRouter> router_ = std::make_shared<RecordingRouter>();
};

TEST_F(RewardTabTest, FitsPhonesAndDesktopsInReadingOrder) {
  struct Place {
    QSize size;
    double textScale;
    QString name;
  };
  for (const auto& [size, scale, name] :
       {Place{{390, 844}, 1.0, "reward-tab-390"}, Place{{320, 568}, 1.0, "reward-tab-320"},
        Place{{320, 568}, 2.0, "reward-tab-320-large-text"}, Place{{1280, 800}, 1.0, "reward-tab-desktop"}}) {
    open(size, scale);
    openTab();
    grab(name);
    expectNothingCut();
    const QStringList inOrder{balance, gifticons, exchange, tickets};
    auto read = names();
    read.removeIf([&](const QString& each) { return !inOrder.contains(each); });
    read.removeDuplicates();  // an item without a badge has the name of its text
    EXPECT_EQ(read, inOrder);
  }
}

TEST_F(RewardTabTest, AFailedFirstLoadLeavesButtonsWithoutBadges) {
  service_->answers["/my-rewards"] = {500, ""};
  showTab();
  ASSERT_TRUE(waitFor([this] { return service_->timesAsked("/my-rewards") == 1; }));
  settle();
  grab("reward-tab-failed");
  expectNothingCut();
  for (const auto& shown : {QStringLiteral("기프티콘"), QStringLiteral("응모권")})
    EXPECT_NE(named(shown), nullptr) << shown.toStdString();
  EXPECT_EQ(named(exchange), nullptr);
  EXPECT_TRUE(drawnBy("PointView").empty());
}

TEST_F(RewardTabTest, KeyboardAndTouchReachWhatCanBePressed) {
  openTab();
  QStringList order;
  for (int i = 0; i < 3; ++i) {
    press(Qt::Key_Tab);
    order.push_back(focusName());
    press(Qt::Key_Return);
  }
  grab("reward-tab-focus");
  EXPECT_EQ(order, QStringList({balance, gifticons, exchange}));
  click(tickets);
  click(gifticons);
  EXPECT_EQ(router_->routes, (std::vector<Page>{Page::Fixed::pointRedemptionHistory, Page::Fixed::gifticon,
                                                Page::Fixed::externalPointExchange, Page::Fixed::gifticon}));
}

}  // namespace
}  // namespace orrelo::test

#include "QuickTest.h"

#include <set>

namespace orrelo::test {
namespace {

const QString askHost = QStringLiteral("알림 받으러 가기");
const QString pictureMissing =
    QStringLiteral("이미지를 불러오는데 실패했습니다.\n잠시 후 다시 시도해 주세요.");
const QString update = QStringLiteral("업데이트하러 가기");
const QColor stamped("#2E7D32");
const QColor waiting("#B0BEC5");

class Consent final : public ORLOptInMarketingCampaignDelegate {
 public:
  void onMoveButtonTapped(const std::shared_ptr<ViewController>& in) override { screens.push_back(in); }
  std::vector<std::shared_ptr<ViewController>> screens;
};

/// A page with a board of seven missions; the first and the fourth are done.
std::string stampPage() {
  return R"({"page_type":"stamp","page_id":"p","page_detail":{"toolbar_text":"가을 스탬프",
    "first_title":"미션을 마치고","second_title":"스탬프를 모으세요!","guide_message":"여섯 개를 모으면 선물을 드려요.",
    "main_image_url":"https://cdn.example/result.png",
    "stamp":{"column_count":3,"missions":[
      {"name":"첫 구매","icon_url":"https://cdn.example/done.png"},
      {"name":"리뷰 쓰기","icon_url":"https://cdn.example/open.png"},
      {"name":"가까운 친구 세 명 초대하기","icon_url":"https://cdn.example/open.png"},
      {"name":"알림 켜기","icon_url":"https://cdn.example/done.png"},
      {"name":"두 번째 구매","icon_url":"https://cdn.example/open.png"},
      {"name":"사진 없는 미션","icon_url":"https://cdn.example/none.png"},
      {"name":"숨은 미션","icon_url":"https://cdn.example/open.png"}]},
    "layout":{"component_order":["information","stamp","main_image","notice"]},
    "notice":["스탬프는 미션을 마친 다음 날 찍힙니다.","모은 스탬프는 되돌릴 수 없습니다."]}})";
}

class CampaignKindsTest : public QuickTest {
 protected:
  CampaignKindsTest() {
    service_->answers["/none.png"] = service_->answers["/bell.png"] = {404, ""};
    service_->answers["/done.png"] = {200, picture({72, 72}, stamped)};
    service_->answers["/open.png"] = {200, picture({72, 72}, waiting)};
    Orrelo::setOptInMarketingCampaignDelegate(consent_);
  }

  void openCampaign(const std::string& page, const QString& sign, QSize size, double textScale) {
    service_->answers["/campaigns/c-1"] = {200, campaignReply(page)};
    open(size, textScale);
    showCampaign();
    ASSERT_TRUE(waitForNamed(sign));
    settle();
  }
  /// The scene rectangle of the mission with this name.
  QRectF cell(const char* name) const {
    const auto* const label = named(QString::fromUtf8(name));
    return label != nullptr ? sceneRect(label->parentItem()) : QRectF();
  }
  /// Calls `look` with the text scales 1 and 2 and checks the layout of what it opens.
  void onSmallScreens(const QString& name, const std::function<void(double)>& look) {
    for (const double scale : {1.0, 2.0}) {
      SCOPED_TRACE(scale);
      look(scale);
      expectNothingCut();
      const auto shot = name + (scale == 1.0 ? "-320" : "-320-large-text");
      grab(shot);
      press(Qt::Key_End);
      grab(shot + "-end");
    }
  }

  std::shared_ptr<Consent> consent_ = std::make_shared<Consent>();
};

TEST_F(CampaignKindsTest, AnOptInWorksWithoutItsPicture) {
  onSmallScreens("opt-in-picture-missing", [&](double scale) {
    openCampaign(optInMarketingPage(), askHost, {320, 568}, scale);
    EXPECT_TRUE(waitForNamed(pictureMissing));
    EXPECT_TRUE(named(askHost)->isEnabled());
    EXPECT_GT(sceneRect(named(askHost)).top(), sceneRect(named(pictureMissing)).bottom());
  });
  press(Qt::Key_Home);
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), askHost);
  press(Qt::Key_Space);
  EXPECT_THAT(consent_->screens, testing::ElementsAre(host()->presentedViewController()));
  settle();
  const auto place = sceneRect(named(askHost));
  EXPECT_GE(place.top(), 44.0);
  EXPECT_LE(place.bottom(), 568.0) << "the focus brings it into view";
  click(askHost);
  EXPECT_EQ(consent_->screens.size(), 2U);
}

TEST_F(CampaignKindsTest, AStampBoardShowsWholeRowsWithEachMissionsIcon) {
  onSmallScreens("stamp", [&](double scale) {
    openCampaign(stampPage(), QStringLiteral("첫 구매"), {320, 568}, scale);
    std::set<int> columns;
    std::set<int> rows;
    for (const auto* const name : {"첫 구매", "리뷰 쓰기", "가까운 친구 세 명 초대하기", "알림 켜기",
                                   "두 번째 구매", "사진 없는 미션"}) {
      const auto place = cell(name);
      columns.insert(static_cast<int>(std::round(place.left())));
      rows.insert(static_cast<int>(std::round(place.top())));
    }
    EXPECT_EQ(columns.size(), 3U);
    EXPECT_EQ(rows.size(), 2U);
    EXPECT_EQ(named(QStringLiteral("숨은 미션")), nullptr);
  });
  open({390, 844});
  showCampaign();
  ASSERT_TRUE(waitForNamed(QStringLiteral("첫 구매")));
  const auto whole = grab("stamp-390");
  const auto pixels = [&](const char* name, const QColor& color) {
    return count(whole.copy(cell(name).toRect()), color);
  };
  constexpr int some = 72 * 72 / 4;
  for (const auto* const name : {"첫 구매", "알림 켜기"}) EXPECT_GT(pixels(name, stamped), some) << name;
  for (const auto* const name : {"리뷰 쓰기", "두 번째 구매"}) EXPECT_GT(pixels(name, waiting), some) << name;
  EXPECT_EQ(pixels("첫 구매", waiting) + pixels("리뷰 쓰기", stamped) + pixels("사진 없는 미션", waiting), 0);
}

TEST_F(CampaignKindsTest, AKindOfTomorrowAsksForAnUpdate) {
  service_->answers["/lookup"] = {
      200, R"({"resultCount":1,"results":[{"bundleId":"com.example.shop","trackId":42}]})"};
  onSmallScreens("update", [&](double scale) {
    openCampaign(R"({"page_type":"hologram","page_id":"p"})", update, {320, 568}, scale);
  });
  openCampaign(R"({"page_type":"hologram","page_id":"p"})", update, {568, 320}, 2.0);
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), update);
  settle();
  EXPECT_LE(sceneRect(named(update)->parentItem()).bottom(), 320.0) << "the focus brings it into view";
  const auto failed = QStringLiteral("업데이트 페이지 이동에 실패했습니다.");
  click(update);
  ASSERT_TRUE(waitForNamed(failed)) << "Qt cannot open the store's link";
  expectNothingCut();
  grab("update-failed");
}

}  // namespace
}  // namespace orrelo::test

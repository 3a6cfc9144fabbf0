#include "QuickTest.h"
#include "viewkit/ErrorViewController.h"

#include <QQmlProperty>

namespace orrelo::test {
namespace {

const char* const blocksPage =
    R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{"toolbar":{"text":"상자"},
    "component_order":["action","information","information_tooltip","boxed_information_list","page_entry_view",
    "scratch_lottery"]}},"blank":[16,16,16,16,16,16],"action":[{"button_text":"상자 열기","status_message":"한 번 남았어요",
    "button_enable":true,"button_url":"/open","button_color":"#5B50E8"}],"information":[{"first_title":"하루에 한 번",
    "second_title":"열어 보세요!","guide_message":"자정까지예요."}],"information_tooltip":[{"first_title":"받을 수 있는",
    "second_title":"선물 목록","tooltip_title":"당첨 확률 안내","tooltip_message":"확률은 같고 선물은 매주 월요일에 바뀌어요."}],
    "boxed_information_list":[{"title":"이번 주의 선물","items":[
    {"left_text":"커피","image_url":"https://a.example/gift.png","right_text":"1,000명","color":"#E8505B"},
    {"left_text":"케이크","image_url":"https://a.example/gift.png","right_text":"10명","color":"#E8505B"}]}],
    "page_entry_view":[{"title":"출석체크","label":"포인트 받기","icon_url":"https://a.example/gift.png","campaign_id":"c-2"}],
    "scratch_lottery":[{"state":"done","scratchable":true,"result":"쿠폰 당첨","mot_url":"/no","done_url":"/done",
    "primary_color":"#5B50E8","secondary_color":"#E5E3FF"}]}})";

struct Row {
  const char* what;
  double drawn;
  double designed;
};

void expectSizes(const std::vector<Row>& rows) {
  for (const auto& row : rows) EXPECT_NEAR(row.drawn, row.designed, 0.5) << row.what;
}

/// A property such as "border.width".
double number(QQuickItem* item, const char* property) {
  return QQmlProperty::read(item, QLatin1String(property)).toDouble();
}

class GeometryTest : public QuickTest {
 protected:
  void openPage(const std::string& page, const char* awaitedName) {
    service_->answers["/campaigns/c-1"] = {200, campaignReply(page)};
    open({390, 1200});
    showCampaign();
    ASSERT_TRUE(waitForNamed(QString::fromUtf8(awaitedName)));
    settle();
  }
  QQuickItem* text(const char* shown) const {
    auto* const found = named(QString::fromUtf8(shown));
    return found != nullptr ? found : throw std::runtime_error(shown);
  }
  QRectF place(const char* shown) const { return sceneRect(text(shown)); }
  /// Waits for an image to be loaded in `outer`, and for the layout that follows.
  QQuickItem* imageIn(const QQuickItem* outer) {
    QQuickItem* found = nullptr;
    const bool isLoaded = waitFor([&] {
      for (auto* const image : drawnBy("KitImage")) {
        if (outer->isAncestorOf(image)) found = image;
      }
      return found != nullptr;
    });
    if (!isLoaded) throw std::runtime_error("no image");
    settle();
    return found;
  }
};

TEST_F(GeometryTest, Blocks) {
  openPage(blocksPage, "상자 열기");
  auto* const entry = text("출석체크")->parentItem()->parentItem();
  const auto boxes = drawnBy("InformationBox");
  auto* const iconItem = imageIn(entry);
  const auto boxImage = sceneRect(imageIn(boxes.at(0)));
  const auto icon = sceneRect(iconItem);
  const auto ground = sceneRect(entry);
  const auto button = sceneRect(text("상자 열기")->parentItem());
  const auto box = sceneRect(boxes[0]);
  const auto* const card = drawnBy("ScratchLotteryView").at(0);
  auto* const cardGround = card->childItems().front();
  click(QStringLiteral("당첨 확률 안내"));
  expectSizes({
      {"button's height", button.height(), 56},
      {"button's margin", button.left(), 16},
      {"status below the button", place("한 번 남았어요").top() - button.bottom(), 10},
      {"information's margin", place("하루에 한 번").left(), 25},
      {"guide below the titles", place("자정까지예요.").top() - place("열어 보세요!").bottom(), 12},
      {"tooltip information's margin", place("받을 수 있는").left(), 25},
      {"line below the titles", sceneRect(drawnBy("GuideLine").at(0)).top() - place("선물 목록").bottom(),
       12},
      {"tooltip's width", drawnBy("TooltipView").at(0)->width(), 200},
      {"tooltip's block above the next", drawnBy("TooltipInformationView").at(0)->z(), 1},
      {"box's margin", box.left(), 25},
      {"box's height", box.height(), 84},
      {"box's radius", number(boxes[0], "radius"), 8},
      {"box below a box", sceneRect(boxes.at(1)).top() - box.bottom(), 8},
      {"left text in its box", place("커피").left() - box.left(), 24},
      {"image beside the left text", boxImage.left() - place("커피").right(), 10},
      {"image's height", boxImage.height(), 24},
      {"right text in its box", box.right() - place("1,000명").right(), 24},
      {"entry's inset", ground.left(), 24},
      {"entry's width", ground.width(), 390 - 48},
      {"entry's radius", number(entry, "radius"), 8},
      {"icon in its entry", icon.left() - ground.left(), 20},
      {"title beside the icon", place("출석체크").left() - icon.right(), 10},
      {"label below the title", place("포인트 받기").top() - place("출석체크").bottom(), 4},
      {"arrow in its entry", ground.right() - sceneRect(entry->childItems().back()).right(), 20},
      {"card's height", card->height(), 80},
      {"card's radius", number(cardGround, "radius"), 4},
      {"card's border", number(cardGround, "border.width"), 2},
      {"result's font", number(text("쿠폰 당첨"), "font.pixelSize"), 16},
  });
}

TEST_F(GeometryTest, CampaignPages) {
  openPage(richAttendancePage(), "출석체크 하기");
  const auto* const day = text("17일, 출석");
  const auto* const today = text("18일, 오늘");
  auto* const number17 = day->childItems().at(1);
  auto* const belowToday = today->childItems().at(0)->childItems().at(0)->childItems().back();
  const auto* const bonus = text("20일, 보너스");
  const double bonusIconHeight = imageIn(bonus)->height();
  expectSizes({
      {"check-in button's height", text("출석체크 하기")->parentItem()->height(), 56},
      {"day's font", number(number17, "font.pixelSize"), day->height() / 2.5},
      {"font below the day", number(belowToday, "font.pixelSize"), today->height() / 3.5},
      {"bonus icon's side", bonusIconHeight, bonus->height() / 1.5},
      {"legend's font", number(text("출석"), "font.pixelSize"), 10},
  });
  service_->answers["/lookup"] = {200, R"({"resultCount":0,"results":[]})"};
  openPage(R"({"page_type":"hologram","page_id":"p"})", "업데이트하러 가기");
  const auto* const pressArea = text("업데이트하러 가기")->parentItem();
  const auto button = sceneRect(pressArea);
  auto* const frame = pressArea->childItems().at(1);  // after the focus ring
  expectSizes({
      {"update button's width", button.width(), 124},
      {"update button's height", button.height(), 36},
      {"button below the message", button.top() - sceneRect(drawnBy("ErrorMessage").at(0)).bottom(), 16},
      {"update button's radius", number(frame, "radius"), 8},
      {"update button's border", number(frame, "border.width"), 1},
  });
}

TEST_F(GeometryTest, IndicatorAndToast) {
  WindowTest::showCampaign("unanswered");
  ASSERT_TRUE(waitForNamed(QStringLiteral("불러오는 중")));
  EXPECT_EQ(text("불러오는 중")->size(), QSizeF(50, 50));
  open({390, 844});
  const auto screen = std::make_shared<ErrorViewController>("화면");
  host()->present(screen, false);
  const char* const message =
      "선물 상자가 도착했어요. 오늘 자정까지 열고 다음 주의 선물도 미리 확인해 보세요!";
  screen->toastLayer->showToast(message, Color());
  ASSERT_TRUE(waitForNamed(QString::fromUtf8(message)));
  auto* const toast = text(message)->parentItem();
  expectSizes({{"toast's greatest width", toast->width(), 390 * 0.8},
               {"text in its toast", place(message).left() - sceneRect(toast).left(), 8},
               {"text below its toast's top", place(message).top() - sceneRect(toast).top(), 8},
               {"toast's radius", number(toast, "radius"), 5}});
}

}  // namespace
}  // namespace orrelo::test

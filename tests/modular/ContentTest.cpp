#include "RenderedPage.h"
#include "modular/content/ActionButtonView.h"
#include "modular/content/BoxedInformationListView.h"
#include "modular/content/PageEntryView.h"
#include "modular/content/SpacerView.h"
#include "modular/content/TooltipInformationView.h"
#include "viewkit/InformationView.h"
#include "viewkit/NoticeView.h"
#include "viewkit/WebView.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ContentTest : public RenderedPage {
 protected:
  /// The views and spacings of a page with this order, two images and these blanks.
  Lines spaced(const Json& order, const Json& blanks) {
    auto page = pageOf(order, {{"image", wholePage()["image"]}});
    page["blank"] = blanks;
    Lines lines;
    const auto view = build(page);
    for (const auto& each : view->stackView->arrangedSubviews) {
      const auto* const spacer = dynamic_cast<const SpacerView*>(each.view.get());
      lines.push_back((spacer != nullptr ? "spacer " + std::to_string(int(spacer->height)) : "image") +
                      " then " + std::to_string(int(each.spacingAfter)));
    }
    return lines;
  }
  /// The inset or the width, and the height, of a web block with these texts.
  std::string place(const std::string& width, const std::string& height) {
    auto web = block("web");
    web["width"] = width;
    web["height"] = height;
    const auto arranged = arrange("web", web);
    const auto& view = dynamic_cast<const WebView&>(*arranged.view);
    EXPECT_NE(arranged.inset.has_value(), view.width.has_value());
    return (arranged.inset ? "inset " + std::to_string(int(*arranged.inset))
                           : std::to_string(static_cast<long long>(*view.width))) +
           " by " + std::to_string(static_cast<long long>(view.height));
  }
};

TEST_F(ContentTest, AButtonTakesPartAndSaysSo) {
  const auto arranged = arrange("action", block("action"));
  const auto button = std::dynamic_pointer_cast<ActionButtonView>(arranged.view);
  EXPECT_EQ(button->content.text, "상자 열기");
  EXPECT_EQ(button->content.statusMessage, "오늘 1번 남았어요");
  EXPECT_EQ(button->content.color, Color::fromHex("#5B50E8"));
  // The reply may replace the page while the button is still in its handler.
  requests_->onRequest = [this] { page_.reset(); };
  button->onClick();
  EXPECT_THAT(requests_->lines, ElementsAre("participate /campaigns/c-modular-3/open"));
  EXPECT_THAT(reports_->names, ElementsAre("ol_campaign_participate_button_click"));
  button->onClick();  // the page is gone
  EXPECT_EQ(requests_->lines.size(), 1U);
  EXPECT_EQ(reports_->names.size(), 2U);

  auto disabled = block("action");
  disabled["button_enable"] = false;
  const auto inactive = render<ActionButtonView>("action", disabled);
  inactive->onClick();
  EXPECT_EQ(requests_->lines.size(), 1U);
  EXPECT_EQ(reports_->names.size(), 2U);

  EXPECT_EQ(button->fill(), button->content.color);
  EXPECT_EQ(button->titleColor(), (Color{1.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(inactive->fill(), (Color{0.945, 0.949, 0.953, 1.0}));
  EXPECT_EQ(inactive->titleColor(), (Color{0.582, 0.588, 0.592, 1.0}));
}

TEST_F(ContentTest, APictureIsLoadedAcrossThePageInItsStyle) {
  platform_.session->lay(ScriptedURLSession::reply(200, PlainImageCodec::file(40, 20)));
  const auto arranged = arrange("image", block("image"));
  platform_.loop->run();
  const auto& fitted = dynamic_cast<const AutoLayoutImageView&>(*arranged.view);
  EXPECT_EQ(fitted.contentMode, AutoLayoutImageView::ContentMode::scaleAspectFit);
  EXPECT_TRUE(fitted.state.value().image);
  platform_.session->lay(ScriptedURLSession::reply(404));
  const auto centered = render<AutoLayoutImageView>("image", block("image", 1));
  platform_.loop->run();
  EXPECT_EQ(centered->contentMode, AutoLayoutImageView::ContentMode::center);
  EXPECT_FALSE(centered->state.value().image);
}

TEST_F(ContentTest, AWebPagesPlaceIsReadFromItsTexts) {
  const auto view = render<WebView>("web", block("web"));
  EXPECT_EQ(view->url.text(), "https://cdn.example/web/winners.html");
  EXPECT_EQ(place("100%", "240"), "inset 0 by 240");
  EXPECT_EQ(place("320", "+240"), "320 by 240");
  for (const auto* const text : {"", "12px", " 12", "1.5", "-5", "99999999999999999999"}) {
    EXPECT_EQ(place(text, text), "0 by 0") << text;
  }
  EXPECT_EQ(place("100%", "1000000"), "inset 0 by 1000000");
  EXPECT_EQ(place("1000001", "9223372036854775807"), "1000000 by 1000000");
}

TEST_F(ContentTest, ABlankIsAViewAtTheTopAndSpacingBelow) {
  EXPECT_THAT(spaced({"image", "image"}, {10, 20, 30}),
              ElementsAre("spacer 10 then 0", "image then 20", "image then 30"));
  // The second of two blanks replaces the spacing of the first, also of the spacer at the top.
  EXPECT_THAT(spaced({"image", "hologram"}, {10, 20, 30}), ElementsAre("spacer 10 then 0", "image then 30"));
  EXPECT_THAT(spaced({"hologram", "blank", "image"}, {10, 20, 30}),
              ElementsAre("spacer 10 then 30", "image then 0"));
  EXPECT_THAT(spaced({"image"}, {-10, -20}), ElementsAre("spacer 0 then 0", "image then 0"));
}

TEST_F(ContentTest, TextsStandAsTheyWereSent) {
  const auto view = render<InformationView>("information", block("information"));
  EXPECT_EQ(view->firstTitle, "하루에 한 번");
  EXPECT_EQ(view->secondTitle, "상자를 열어 보세요");
  EXPECT_EQ(view->guideMessage, "자정이 지나면 다시 열 수 있어요.\n지난 상자는 사라져요.");
  EXPECT_EQ(render<NoticeView>("notice", {{"items", {"하나", "", "셋"}}})->text, "• 하나\n• \n• 셋");
  const auto entry = render<PageEntryView>("page_entry_view", block("page_entry_view", 1));
  EXPECT_EQ(entry->title, "내 포인트");
  EXPECT_EQ(entry->label, "지금까지 모은 포인트");
  EXPECT_THAT(platform_.session->requests, IsEmpty()) << "the entry has no icon";
}

TEST_F(ContentTest, ALineExplainsItselfWhenItIsTapped) {
  auto information = block("information_tooltip");
  const auto view = render<TooltipInformationView>("information_tooltip", information);
  EXPECT_EQ(view->firstTitle, "받을 수 있는");
  EXPECT_EQ(view->secondTitle, "선물 목록");
  EXPECT_EQ(view->tooltipTitle, "당첨 확률");
  const auto& tooltip = view->tooltipView->state;
  EXPECT_TRUE(tooltip.value().isHidden);
  for (const int count : {1, 2}) {
    view->tooltipTitleTapped();
    EXPECT_EQ(tooltip.value(), (TooltipView::State{"모든 선물의 확률은 같아요.", false, count}));
  }
  EXPECT_THAT(reports_->names, ElementsAre("ol_tooltip_show", "ol_tooltip_show"));
  information["tooltip_message"] = "";
  const auto plain = render<TooltipInformationView>("information_tooltip", information);
  plain->tooltipTitleTapped();
  EXPECT_TRUE(plain->tooltipView->state.value().isHidden);
  EXPECT_EQ(reports_->names.size(), 2U);
}

TEST_F(ContentTest, ABoxsPictureIsAsWideAsItsProportionsAsk) {
  platform_.session->lay(ScriptedURLSession::reply(200, PlainImageCodec::file(30, 20)));
  platform_.session->lay(ScriptedURLSession::reply(404));
  const auto list =
      render<BoxedInformationListView>("boxed_information_list", block("boxed_information_list"));
  EXPECT_EQ(list->title, "이번 주의 선물");
  ASSERT_EQ(list->boxes.size(), 2U);
  const auto& coffee = *list->boxes[0];
  EXPECT_EQ(coffee.leftText, "커피 쿠폰");
  EXPECT_EQ(coffee.rightText, "1,000명");
  EXPECT_EQ(coffee.rightTextColor, Color::fromHex("#FF5A5F"));
  EXPECT_EQ(coffee.imageWidth.value(), std::nullopt);
  platform_.loop->run();
  EXPECT_EQ(coffee.imageWidth.value(), 36.0);
  EXPECT_EQ(list->boxes[1]->imageWidth.value(), std::nullopt);
}

}  // namespace
}  // namespace orrelo::test

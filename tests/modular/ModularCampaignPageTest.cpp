#include "ModularPages.h"
#include "modular/content/ImageComponent.h"
#include "modular/dialog/RewardMessageDialogComponent.h"
#include "modular/dialog/ToastDialogComponent.h"
#include "support/ExplanationCapture.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Lines listed(const Json& page) {
  return namesOf(decodePage(page).components);
}

TEST(ModularCampaignPageTest, AWholePageIsItsBlocksWithOneBlankFirstAndOneAfterEachName) {
  EXPECT_THAT(listed(wholePage()),
              ElementsAre("blank 12", "image", "blank 24", "information", "blank 16", "action", "blank 32",
                          /* hologram */ "blank 8", "information_tooltip", "blank 20",
                          "boxed_information_list", "blank 28", "image", "blank 16", "web", "blank 16",
                          "page_entry_view", "blank 8", "page_entry_view", "blank 8", "notice", "blank 40",
                          "roulette", "blank 4", "scratch_lottery", "blank 16"));
}

TEST(ModularCampaignPageTest, EveryNameTakesABlankWhetherItBringsABlockOrNot) {
  const Json image{{"image", {block("image")}}};
  const auto withBlanks = [&image](const Lines& order, const Json& blanks) {
    auto page = pageOf(order, image);
    page["blank"] = blanks;
    return listed(page);
  };
  EXPECT_THAT(withBlanks({"image", "hologram"}, {8, 16, 24}),
              ElementsAre("blank 8", "image", "blank 16", "blank 24"));
  EXPECT_THAT(withBlanks({"page_config", "image"}, {8, 16}), ElementsAre("blank 8", "blank 16", "image"));
  EXPECT_THAT(withBlanks({"blank", "notice", "image"}, {8, 16, 24}),
              ElementsAre("blank 8", "blank 16", "blank 24", "image"));
  EXPECT_THAT(withBlanks({}, {10, 20}), ElementsAre("blank 10"));
  EXPECT_THAT(withBlanks({"image"}, Json::array()), ElementsAre("image"));
  EXPECT_THAT(withBlanks({"image"}, nullptr), ElementsAre("image"));
}

TEST(ModularCampaignPageTest, WhatIsLeftOutIsExplainedByItsPlace) {
  auto wheel = block("roulette");
  wheel["items_v2"][1].erase("reward_text");
  auto page = pageOf({"image", "roulette", "hologram", "blank"},
                     {{"image", {block("image"), block("image")}}, {"roulette", {wheel}}, {"a/b", 1}});
  page["page_config"]["layout"]["dialog"] = {{"toast", {{{"message", 7}}}}};
  const ExplanationCapture explanations;
  EXPECT_THAT(listed(page), ElementsAre("image"));
  EXPECT_THAT(explanations.lines(), ElementsAre(HasSubstr("/page_config/layout/dialog is left out"),
                                                testing::AllOf(HasSubstr("/roulette is left out"),
                                                               HasSubstr("/roulette/0/items_v2/1/")),
                                                HasSubstr("names \"roulette\", of which there is no block"),
                                                HasSubstr("names \"hologram\", of which there is no block"),
                                                HasSubstr("/image has blocks that are left out")));
}

TEST(ModularCampaignPageTest, ARepeatedNameTakesTheNextOfItsArray) {
  const auto page = decodePage(pageOf({"image", "image"}, {{"image", wholePage()["image"]}}));
  ASSERT_EQ(page.components.size(), 2U);
  const auto urlAt = [&](std::size_t i) {
    return dynamic_cast<const ImageComponent&>(*page.components[i]).url;
  };
  EXPECT_EQ(urlAt(0), "https://cdn.example/image/box.png");
  EXPECT_EQ(urlAt(1), "https://cdn.example/image/line.png");
}

TEST(ModularCampaignPageTest, AnArrayThatWasNotSentIsPassedOverAndAnExhaustedOneStops) {
  EXPECT_THAT(listed(pageOf({"image", "image"})), IsEmpty());
  EXPECT_THAT(listed(pageOf({"image"}, {{"image", nullptr}})), IsEmpty());
  const StopsThrow stops;
  const auto messageOf = [](const Json& page) -> std::string {
    try {
      decodePage(page);
    } catch (const StopsThrow::Stop& stop) {
      return stop.message;
    }
    return "";
  };
  const std::string message = R"("component_order" names more blocks than "image" holds)";
  EXPECT_EQ(messageOf(pageOf({"image"}, {{"image", Json::array()}})), message);
  EXPECT_EQ(messageOf(pageOf({"image", "image"}, {{"image", {block("image")}}})), message);
  auto wheel = block("roulette");
  wheel["progress"] = {{"state", "done"}};
  EXPECT_THROW(decodePage(pageOf({}, {{"roulette", Json::array({wheel})}})), StopsThrow::Stop);
  EXPECT_THROW(decodePage(pageOf({}, {{"roulette", Json::array({wheel})}, {"blank", "none"}})), Error)
      << "a page that fails to decode stops nothing";
}

TEST(ModularCampaignPageTest, DialogsAreTheRewardsThenTheToastsOrNoneAtAll) {
  const auto texts = [](const Json& dialog) {
    auto page = pageOf({});
    page["page_config"]["layout"]["dialog"] = dialog;
    Lines lines;
    for (const auto& each : decodePage(page).config.layout.dialogComponents) {
      const auto* const reward = dynamic_cast<const RewardMessageDialogComponent*>(each.get());
      const auto* const toast = dynamic_cast<const ToastDialogComponent*>(each.get());
      if (reward != nullptr) lines.push_back("reward " + reward->title + ", " + reward->body);
      if (toast != nullptr) lines.push_back("toast " + toast->message);
    }
    return lines;
  };
  auto dialog = wholePage()["page_config"]["layout"]["dialog"];
  EXPECT_THAT(texts(dialog), ElementsAre("reward 축하합니다 🎉, 커피 쿠폰을 받았어요.",
                                         "reward 하나 더!, 10 포인트도 드려요.", "toast 선물이 도착했어요",
                                         "toast 내일 또 만나요"));
  auto toasts = dialog;
  toasts.erase("reward_message");
  EXPECT_THAT(texts(toasts), ElementsAre("toast 선물이 도착했어요", "toast 내일 또 만나요"));
  dialog["toast"][1].erase("color");
  EXPECT_THAT(texts(dialog), IsEmpty());
  EXPECT_THAT(texts(nullptr), IsEmpty());
}

}  // namespace
}  // namespace orrelo::test

#include "CampaignReplies.h"
#include "base/preconditionFailure.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

Json modularJson() {
  return Json::parse(storedReply("modular.json"));
}
Json& layoutOf(Json& campaign) {
  return campaign["page"]["page_details_v2"]["page_config"]["layout"];
}

/// A block that has nothing but its kind.
class Game final : public UIComponent {
 public:
  explicit Game(std::string_view key) : key_(key) {}
  std::string_view arrayKey() const override { return key_; }
  void render(StackView&) override {}

 private:
  std::string_view key_;
};

TEST(ModularCampaignTest, TheTitleIsTheLayoutsAlone) {
  auto json = modularJson();
  EXPECT_EQ(mapped(json).title, "선물 상자");
  layoutOf(json).erase("toolbar");
  EXPECT_EQ(mapped(json).title, std::nullopt);
  json["page"]["page_details_v2"]["toolbar_text"] = 5;  // ignored, but must be a text
  EXPECT_EQ(mapped(json).type, Campaign::CampaignType(UnknownCampaign{}));
  EXPECT_EQ(mapped(json).title, "이벤트");
}

TEST(ModularCampaignTest, APageOfWhichNothingCanBeShownIsUnknown) {
  const auto isUnknown = [](const Json& json) {
    return mapped(json).type == Campaign::CampaignType(UnknownCampaign{});
  };
  auto json = modularJson();
  auto& page = json["page"];
  layoutOf(json)["component_order"] = {"hologram"};
  EXPECT_FALSE(isUnknown(json));  // its blanks are shown
  page["page_details_v2"].erase("blank");
  EXPECT_TRUE(isUnknown(json));
  layoutOf(json)["component_order"] = {"notice"};
  EXPECT_FALSE(isUnknown(json));
  page["page_type"] = "result";
  EXPECT_TRUE(isUnknown(json));  // other kinds do not read the blocks
  page["page_type"] = "gift_box";
  page["page_detail"] = page["page_details_v2"];
  page.erase("page_details_v2");
  EXPECT_TRUE(isUnknown(json));
}

TEST(ModularCampaignTest, AStopIsNotTakenForAnUnknownPage) {
  struct Stop {};
  setPreconditionFailureHandler([](std::string_view) { throw Stop(); });
  auto json = modularJson();
  layoutOf(json)["component_order"].push_back("notice");
  EXPECT_THROW(mapped(json), Stop);
  setPreconditionFailureHandler(nullptr);
  EXPECT_EQ(mapped(modularJson()).title, "선물 상자");
}

TEST(ModularCampaignTest, TheGamesOfAPageGiveItItsKindTheWheelBeforeTheCard) {
  const auto describe = [](const std::vector<std::string_view>& keys) {
    ModularCampaign modular;
    for (const auto key : keys) modular.components.push_back(std::make_shared<Game>(key));
    return described(std::move(modular));
  };
  EXPECT_THAT(
      (std::vector{describe({"image", "roulette"}), describe({"scratch_lottery", "roulette"}),
                   describe({"image", "scratch_lottery"}), describe({"image"})}),
      ElementsAre("roulette 4", "roulette 4", "scratch_lottery 3", "modular CampaignTypeError.mappingError"));
}

}  // namespace
}  // namespace orrelo::test

// The effect of values that are missing or of another type on a page.
#include "ModularPages.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Pointer = Json::json_pointer;

/// The names of the page's blocks without its blanks, or "DecodingError".
Lines blocksOf(const Json& page) {
  auto lines = outcomeOf(page.dump());
  std::erase_if(lines, [](const auto& line) { return line.starts_with("blank "); });
  return lines;
}

/// Three copies of the page: without the value at `path`, with null, and with a list that fits no field.
std::vector<Json> broken(const Json& page, const std::string& path) {
  const Pointer pointer(path);
  std::vector<Json> pages(3, page);
  pages[0][pointer.parent_pointer()].erase(pointer.back());
  pages[1][pointer] = nullptr;
  pages[2][pointer] = Json::array({Json::array()});
  return pages;
}

Json changed(Json page, const std::string& path, const Json& value) {
  page[Pointer(path)] = value;
  return page;
}

TEST(PagePresenceTest, ABlockThatIsNotWholeCostsItsKind) {
  const auto page = wholePage();
  const std::map<std::string, std::vector<std::string>> required{
      {"information", {"first_title", "second_title", "guide_message"}},
      {"action", {"button_text", "status_message", "button_enable", "button_url", "button_color"}},
      {"notice", {"items"}},
      {"information_tooltip", {"first_title", "second_title", "tooltip_title", "tooltip_message"}},
      {"image", {"url", "style"}},
      {"page_entry_view", {"title", "label", "icon_url"}},
      {"boxed_information_list",
       {"title", "items", "items/1/left_text", "items/1/image_url", "items/1/right_text", "items/1/color"}},
      {"web", {"url", "width", "height"}},
      {"roulette",
       {"progress", "progress/state", "items_v2/0/reward_type", "items_v2/0/reward_text", "primary_color",
        "secondary_color"}},
      {"scratch_lottery",
       {"state", "scratchable", "result", "mot_url", "done_url", "primary_color", "secondary_color"}},
  };
  const auto without = [all = blocksOf(page)](const std::string& kind) {
    auto others = all;
    std::erase(others, kind);
    return others;
  };
  for (const auto& [kind, keys] : required) {
    for (const auto& each : broken(page, "/" + kind)) EXPECT_EQ(blocksOf(each), without(kind)) << kind;
    for (const auto& key : keys) {
      for (const auto& each : broken(page, "/" + kind + "/0/" + key)) {
        EXPECT_EQ(blocksOf(each), without(kind)) << kind << ": " << key;
      }
    }
  }
  const std::vector<std::tuple<std::string, std::string, Json>> unfit{{"image", "style", "stretch"},
                                                                      {"web", "url", ""},
                                                                      {"scratch_lottery", "state", "running"},
                                                                      {"notice", "items", {"x", 5}},
                                                                      {"action", "button_enable", "true"}};
  for (const auto& [kind, key, value] : unfit) {
    EXPECT_EQ(blocksOf(changed(page, "/" + kind + "/0/" + key, value)), without(kind)) << kind << ": " << key;
  }
}

TEST(PagePresenceTest, ALayoutThatIsNotWholeCostsThePageAndItsDialogsOnlyThemselves) {
  const auto page = wholePage();
  const std::string layout = "/page_config/layout";
  const std::vector<std::string> required{"/page_config", layout, layout + "/component_order",
                                          layout + "/toolbar/text"};
  for (const auto& path : required) {
    for (const auto& each : broken(page, path))
      EXPECT_THAT(blocksOf(each), ElementsAre("DecodingError")) << path;
  }
  for (const auto& blanks : {Json("x"), Json::array({1.5}), Json::array({nullptr})}) {
    EXPECT_THAT(blocksOf(changed(page, "/blank", blanks)), ElementsAre("DecodingError")) << blanks;
  }
  EXPECT_EQ(blocksOf(changed(page, layout + "/toolbar", nullptr)), blocksOf(page));
  for (const auto* const field : {"reward_message/0/title", "reward_message/0/body", "reward_message/0/color",
                                  "reward_message/0/button_text", "toast/0/text", "toast/0/color"}) {
    for (const auto& each : broken(page, layout + "/dialog/" + field)) {
      EXPECT_THAT(decodePage(each).config.layout.dialogComponents, IsEmpty()) << field;
      EXPECT_EQ(blocksOf(each), blocksOf(page));
    }
  }
}

TEST(PagePresenceTest, TheFirstOfDoubledKeysCounts) {
  const auto doubled = [](const std::string& first, const std::string& second) {
    return outcomeOf(R"({"page_config":{"layout":{"component_order":["notice"]}},"notice":)" + first +
                     R"(,"notice":)" + second + "}");
  };
  const std::string whole = R"([{"items":["하나"]}])";
  EXPECT_THAT(doubled(whole, "5"), ElementsAre("notice"));
  EXPECT_THAT(doubled("5", whole), IsEmpty());
}

TEST(PagePresenceTest, EveryBlockOfTheLocalServicesPagesIsReadInEachState) {
  int pages = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ORRELO_SERVICE_CAMPAIGNS)) {
    SCOPED_TRACE(entry.path());
    std::ifstream file(entry.path());
    std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string service = "{{service}}";
    for (auto at = text.find(service); at != std::string::npos; at = text.find(service, at)) {
      text.replace(at, service.size(), "https://service.example");
    }
    const auto campaign = Json::parse(text);
    const auto page = campaign["campaign"]["page"];
    if (!page.contains("page_details_v2")) continue;
    const auto states = campaign.value("states", Json{{"only", Json::object()}});
    for (const auto& [name, changes] : states.items()) {
      auto sent = page;
      for (const auto& [path, value] : changes.items()) sent[Pointer(path)] = value;
      const auto& details = sent["page_details_v2"];
      const Lines order = details["page_config"]["layout"]["component_order"];
      Lines known;
      std::copy_if(order.begin(), order.end(), std::back_inserter(known),
                   [&](const auto& block) { return block != "blank" && details.contains(block); });
      EXPECT_EQ(blocksOf(details), known) << name;
      ++pages;
    }
  }
  EXPECT_GE(pages, 8);
}

}  // namespace
}  // namespace orrelo::test

// Every value of a whole page is broken in every way, and what becomes of the page is what a second reading
// of the rules says.
#include "ComponentFields.h"
#include "modular/ModularCampaignConfig.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <set>

namespace orrelo::test {
namespace {

using Rule = std::function<bool(const Json&)>;
using Record = std::map<std::string, Rule>;

bool isText(const Json& value) {
  return value.is_string();
}
bool isWhole(const Json& value) {
  return value.is_number_integer();
}
Rule listOf(const Rule& rule) {
  return
      [rule](const Json& value) { return value.is_array() && std::all_of(value.begin(), value.end(), rule); };
}
// All fields are there and fit.
Rule recordOf(const Record& fields) {
  return [fields](const Json& value) {
    return value.is_object() && std::all_of(fields.begin(), fields.end(), [&](const auto& field) {
             return value.contains(field.first) && field.second(value[field.first]);
           });
  };
}
Rule orAbsent(const Rule& rule) {
  return [rule](const Json& value) { return value.is_null() || rule(value); };
}

const Json& at(const Json& object, const std::string& key) {
  static const Json none;
  return object.contains(key) ? object[key] : none;
}

// An older list of items serves where there is no newer one.
bool isWheel(const Json& wheel) {
  const auto isItem = recordOf({{"reward_type", &isText}, {"reward_text", &isText}});
  const auto& progress = at(wheel, "progress");
  const auto& index = at(progress, "result_index");
  const auto& url = at(progress, "done_url");
  const auto& state = at(progress, "state");
  const auto& items = at(wheel, "items_v2");
  const bool isInAState = state == "idle" || (state == "running" && !index.is_null() && !url.is_null()) ||
                          (state == "done" && !index.is_null());
  return isInAState && orAbsent(&isWhole)(index) && orAbsent(&isText)(url) &&
         (items.is_null() ? listOf(&isText)(at(wheel, "items")) : listOf(isItem)(items)) &&
         isText(at(wheel, "primary_color")) && isText(at(wheel, "secondary_color"));
}
// One that is over and does not say where stops the process, whatever else is wrong with it, unless a wheel
// before it is wrong.
bool doesAWheelStop(const Json& wheels) {
  if (!wheels.is_array()) return false;
  const auto first =
      std::find_if(wheels.begin(), wheels.end(), [](const auto& wheel) { return !isWheel(wheel); });
  if (first == wheels.end()) return false;
  const auto& progress = at(*first, "progress");
  return at(progress, "state") == "done" && at(progress, "result_index").is_null() &&
         orAbsent(&isText)(at(progress, "done_url"));
}

const std::map<std::string, Rule>& blockRules() {
  const auto texts = [](const std::vector<std::string>& keys) {
    Record record;
    for (const auto& key : keys) record[key] = &isText;
    return record;
  };
  const auto isStyle = [](const Json& value) { return value == "fit" || value == "none"; };
  const auto isFilledText = [](const Json& value) { return value.is_string() && value != ""; };
  auto action = texts({"button_text", "status_message", "button_url", "button_color"});
  action["button_enable"] = [](const Json& value) { return value.is_boolean(); };
  auto web = texts({"width", "height"});
  web["url"] = isFilledText;
  auto card = texts({"result", "mot_url", "done_url", "primary_color", "secondary_color"});
  card["state"] = [](const Json& value) { return value == "idle" || value == "done"; };
  card["scratchable"] = action["button_enable"];
  static const std::map<std::string, Rule> rules{
      {"information", recordOf(texts({"first_title", "second_title", "guide_message"}))},
      {"action", recordOf(action)},
      {"notice", recordOf({{"items", listOf(&isText)}})},
      {"information_tooltip",
       recordOf(texts({"first_title", "second_title", "tooltip_title", "tooltip_message"}))},
      {"image", recordOf({{"url", &isText}, {"style", isStyle}})},
      {"page_entry_view", recordOf(texts({"title", "label", "icon_url"}))},
      {"boxed_information_list",
       recordOf({{"title", &isText},
                 {"items", listOf(recordOf(texts({"left_text", "image_url", "right_text", "color"})))}})},
      {"web", recordOf(web)},
      {"roulette", &isWheel},
      {"scratch_lottery", recordOf(card)},
  };
  return rules;
}

// What should become of a page: the names of its blocks, "DecodingError" or "Stop".
Lines expectedOutcome(const Json& page) {
  const auto layout = recordOf({{"component_order", listOf(&isText)}});
  const Lines failed{"DecodingError"};
  if (!recordOf({{"page_config", recordOf({{"layout", layout}})}})(page)) return failed;
  const auto& config = page["page_config"]["layout"];
  if (!orAbsent(recordOf({{"text", &isText}}))(at(config, "toolbar"))) return failed;
  if (!orAbsent(listOf(&isWhole))(at(page, "blank"))) return failed;
  if (doesAWheelStop(at(page, "roulette"))) return {"Stop"};

  Lines lines;
  std::map<std::string, std::size_t> taken;
  std::size_t blanks = 0;
  const auto takeBlank = [&] {
    const auto& all = at(page, "blank");
    if (blanks < all.size()) lines.push_back("blank " + all[blanks++].dump());
  };
  takeBlank();
  for (const std::string name : config["component_order"]) {
    const auto rule = blockRules().find(name);
    if (rule != blockRules().end() && listOf(rule->second)(at(page, name))) {
      if (taken[name]++ == page[name].size()) return {"Stop"};
      lines.push_back(name);
    }
    takeBlank();
  }
  return lines;
}

std::size_t expectedDialogs(const Json& page) {
  const auto texts = [](const std::vector<std::string>& keys) {
    Record record;
    for (const auto& key : keys) record[key] = &isText;
    return orAbsent(listOf(recordOf(record)));
  };
  const auto& dialog = at(page["page_config"]["layout"], "dialog");
  if (!dialog.is_object()) return 0;
  const auto& rewards = at(dialog, "reward_message");
  const auto& toasts = at(dialog, "toast");
  const bool isGood =
      texts({"title", "body", "button_text", "color"})(rewards) && texts({"text", "color"})(toasts);
  return isGood ? rewards.size() + toasts.size() : 0;
}

// The composed pages of the local service's campaigns: as they begin, in each state, and as each reply sends
// them.
std::map<std::string, Json> servicePages() {
  std::map<std::string, Json> pages;
  for (const auto& entry : std::filesystem::directory_iterator(ORRELO_SERVICE_CAMPAIGNS)) {
    std::ifstream file(entry.path());
    std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string placeholder = "{{service}}";
    for (auto at = text.find(placeholder); at != std::string::npos; at = text.find(placeholder, at)) {
      text.replace(at, placeholder.size(), "https://service.example");
    }
    const auto campaign = Json::parse(text);
    const auto& page = campaign["campaign"]["page"];
    if (!page.contains("page_details_v2")) continue;
    const auto add = [&](const std::string& name, const Json& patched) {
      pages[entry.path().stem().string() + " " + name] = patched["page_details_v2"];
    };
    const auto patched = [](Json target, const Json& changes) {
      for (const auto& [path, value] : changes.items()) target[Json::json_pointer(path)] = value;
      return target;
    };
    add("begins", page);
    for (const auto& [name, changes] : at(campaign, "states").items()) add(name, patched(page, changes));
    for (const auto& [name, action] : at(campaign, "actions").items()) {
      const auto after = patched(page, campaign["states"][std::string(action["to"])]);
      add("answers " + name, patched(after, at(action, "reply")));
    }
  }
  return pages;
}

// The pointers to every value below this one.
void collect(const Json& value, const Json::json_pointer& path, std::vector<Json::json_pointer>& paths) {
  if (!path.empty()) paths.push_back(path);
  if (value.is_object()) {
    for (const auto& [key, inner] : value.items()) collect(inner, path / key, paths);
  } else if (value.is_array()) {
    for (std::size_t i = 0; i < value.size(); ++i) collect(value[i], path / i, paths);
  }
}

class PagePresenceTest : public testing::Test {
 protected:
  void expectAsTheRulesSay(const std::string& json, const Json& meant) {
    const auto expected = expectedOutcome(meant);
    Lines outcome;
    try {
      outcome = outcomeOf(json);
    } catch (const StopsThrow::Stop&) {
      outcome = {"Stop"};
    }
    EXPECT_EQ(outcome, expected);
    const bool isPage = expected != Lines{"Stop"} && expected != Lines{"DecodingError"};
    ends_.insert(isPage ? "page" : expected[0]);
    if (!isPage || outcome != expected) return;
    const auto decoded = decodePage(json);
    expectBlocksAsSent(decoded.components, meant);
    const auto& layout = decoded.config.layout;
    EXPECT_EQ(layout.dialogComponents.size(), expectedDialogs(meant));
    if (layout.dialogComponents.size() == expectedDialogs(meant)) expectDialogsAsSent(layout, meant);
    const auto& toolbar = at(meant["page_config"]["layout"], "toolbar");
    EXPECT_EQ(layout.toolbar ? Json(layout.toolbar->text) : Json(), at(toolbar, "text"));
  }
  static void expectBlocksAsSent(const std::vector<std::shared_ptr<UIComponent>>& components,
                                 const Json& meant) {
    std::map<std::string, std::size_t> taken;
    for (const auto& component : components) {
      const std::string kind(component->arrayKey());
      if (kind != "blank") expectHeld(heldBy(*component), sentAs(kind, meant[kind][taken[kind]++]));
    }
  }
  static void expectDialogsAsSent(const PageLayout& layout, const Json& meant) {
    auto dialog = layout.dialogComponents.begin();
    for (const auto* const kind : {"reward_message", "toast"}) {
      if (dialog == layout.dialogComponents.end()) return;
      for (const auto& sent : at(meant["page_config"]["layout"]["dialog"], kind)) {
        expectHeld(heldBy(**dialog++), sentAs(kind, sent));
      }
    }
  }

  // Each value of the page is dropped, and replaced by each of these.
  void breakEverywhere(const Json& whole) {
    static const std::vector<Json> replacements{nullptr,
                                                5,
                                                -3,
                                                1.5,
                                                true,
                                                "",
                                                "notice",
                                                "fit",
                                                "idle",
                                                "running",
                                                "done",
                                                Json::array(),
                                                Json::object(),
                                                Json::array({nullptr}),
                                                Json::array({5}),
                                                Json::array({"image"}),
                                                Json::parse(R"([{"items":[]}])")};
    std::vector<Json::json_pointer> paths;
    collect(whole, Json::json_pointer(), paths);
    for (const auto& path : paths) {
      for (const auto& replacement : replacements) {
        SCOPED_TRACE(path.to_string() + " is " + replacement.dump());
        auto page = whole;
        page[path] = replacement;
        expectAsTheRulesSay(page.dump(), page);
      }
      SCOPED_TRACE(path.to_string() + " dropped");
      auto page = whole;
      auto& above = page[path.parent_pointer()];
      if (above.is_array()) {
        above.erase(std::stoul(path.back()));
      } else {
        above.erase(path.back());
      }
      expectAsTheRulesSay(page.dump(), page);
    }
  }

  const Json whole_ = wholePage();
  const StopsThrow stops_;
  /// Which ends were seen.
  std::set<std::string> ends_;
};

TEST_F(PagePresenceTest, WhateverIsWrongWithAPageCostsWhatItMay) {
  for (const auto& [key, rule] : blockRules()) {
    ASSERT_TRUE(listOf(rule)(at(whole_, key))) << key << ": every kind of block is there, and whole";
  }
  breakEverywhere(whole_);
  EXPECT_EQ(ends_, (std::set<std::string>{"DecodingError", "Stop", "page"}));
}

TEST_F(PagePresenceTest, AWheelAndACardOfEachStateCostWhatTheyMay) {
  auto games = pageOf({"roulette", "roulette", "roulette", "scratch_lottery", "scratch_lottery"});
  for (const auto* const state : {"idle", "running", "done"}) {
    auto wheel = block("roulette");
    wheel["progress"]["state"] = state;
    games["roulette"].push_back(wheel);
  }
  games["roulette"][1].erase("items_v2");
  games["roulette"][2]["progress"].erase("done_url");
  for (const auto* const state : {"idle", "done"}) {
    auto card = block("scratch_lottery");
    card["state"] = state;
    card["scratchable"] = false;
    games["scratch_lottery"].push_back(card);
  }
  expectAsTheRulesSay(games.dump(), games);
  EXPECT_EQ(ends_, std::set<std::string>{"page"});
  breakEverywhere(games);
  EXPECT_TRUE(ends_.contains("Stop"));
}

TEST_F(PagePresenceTest, ThePagesOfTheLocalServiceAreReadWholeAndBrokenAsAnyOther) {
  const auto pages = servicePages();
  EXPECT_GE(pages.size(), 15U);
  for (const auto& [name, page] : pages) {
    SCOPED_TRACE(name);
    // All arrays can be read.
    for (const auto& [key, rule] : blockRules()) {
      EXPECT_TRUE(orAbsent(listOf(rule))(at(page, key))) << key;
    }
    ends_.clear();
    expectAsTheRulesSay(page.dump(), page);
    EXPECT_EQ(ends_, std::set<std::string>{"page"});
    breakEverywhere(page);
  }
}

TEST_F(PagePresenceTest, OfDoubledKeysTheFirstCounts) {
  std::vector<Json::json_pointer> paths;
  collect(whole_, Json::json_pointer(), paths);
  for (const auto& path : paths) {
    if (!whole_[path.parent_pointer()].is_object()) continue;
    SCOPED_TRACE(path.to_string());
    auto broken = whole_;
    broken[path] = 5;
    auto marked = whole_;
    marked[path] = "MARKED";
    const auto doubled = [&](const std::string& first, const std::string& second) {
      auto text = marked.dump();
      return text.replace(text.find("\"MARKED\""), 8, first + ",\"" + path.back() + "\":" + second);
    };
    expectAsTheRulesSay(doubled(whole_[path].dump(), "5"), whole_);
    expectAsTheRulesSay(doubled("5", whole_[path].dump()), broken);
  }
}

}  // namespace
}  // namespace orrelo::test

// The effect of values that are missing or of another type on a reply.
#include "CampaignReplies.h"
#include "base/Error.h"

#include <optional>

namespace orrelo::test {
namespace {

using Pointer = Json::json_pointer;

const PageDetailDTO unknown{UnknownCampaignDetailDTO{}, "이벤트"};

/// A kind of reply that has every field.
struct Kind {
  Json campaign;
  /// Fields of the page's detail without which the page is unknown.
  std::vector<std::string> required;
  /// Fields without which only the field, or the record that holds it, is missing.
  std::vector<std::string> optional;
};

std::vector<Kind> kinds() {
  return {{attendanceJson(),
           {"first_title", "second_title", "status_message", "today", "attended_date", "highlighted_date",
            "button_enable", "button_text", "button_url", "calendar_description", "color", "highlight_color",
            "guide_message", "notice"},
           {"highlight_icon", "image_url", "reward_message", "reward_message/title", "reward_message/body",
            "reward_message/button_text"}},
          {resultJson(),
           {"image_url", "body", "notice"},
           {"pop_up", "pop_up/title", "pop_up/label", "pop_up/image_url", "pop_up/button_text"}},
          {Json::parse(storedReply("stamp.json")),
           {"stamp", "stamp/column_count", "stamp/missions", "stamp/missions/0/name",
            "stamp/missions/3/icon_url", "layout", "layout/component_order"},
           {"main_image_url", "sub_image_url", "first_title", "second_title", "guide_message", "notice"}},
          {Json::parse(storedReply("marketing.json")),
           {"image_url", "button_enable", "button_text", "button_visibility", "color", "notice"},
           {}},
          {Json::parse(storedReply("referral.json")),
           {"first_title", "second_title", "status_message", "button_text", "code", "code_description",
            "navigate_enable", "referral_message", "notice", "color", "highlight_color", "guide_message",
            "input_url", "validate_url", "error_message", "current_registered"},
           {}}};
}

Json without(Json campaign, const Pointer& path) {
  campaign[path.parent_pointer()].erase(path.back());
  return campaign;
}

/// Three copies of the campaign: without the value at `path`, with null, and with a list that fits no field.
std::vector<Json> broken(const Json& campaign, const Pointer& path) {
  std::vector<Json> campaigns(3, campaign);
  campaigns[0] = without(campaign, path);
  campaigns[1][path] = nullptr;
  campaigns[2][path] = Json::array({Json::array()});
  return campaigns;
}

/// The decoded campaign; nothing when decoding fails.
std::optional<CampaignDTO> decoded(const std::string& json) {
  try {
    return CampaignDTO::decode(json);
  } catch (const Error& error) {
    EXPECT_EQ(error.domain(), "DecodingError");
    return std::nullopt;
  }
}

const std::string detail = "/page/page_detail/";

TEST(CampaignPresenceTest, AValueOfTheDetailCostsThePageOrOnlyItself) {
  for (const auto& [campaign, required, optional] : kinds()) {
    const auto whole = decoded(campaign.dump());
    ASSERT_TRUE(whole && whole->page.pageDetail != unknown) << campaign;
    for (const auto& field : required) {
      for (const auto& each : broken(campaign, Pointer(detail + field))) {
        const auto dto = decoded(each.dump());
        EXPECT_TRUE(dto && dto->page.pageDetail == unknown) << each;
      }
    }
    for (const auto& field : optional) {
      const auto expected =
          decoded(without(campaign, Pointer(detail + field.substr(0, field.find('/')))).dump());
      EXPECT_TRUE(expected && expected != whole && expected->page.pageDetail != unknown) << field;
      for (const auto& each : broken(campaign, Pointer(detail + field))) {
        EXPECT_TRUE(decoded(each.dump()) == expected) << each;
      }
    }
  }
}

TEST(CampaignPresenceTest, ATitleMayBeMissingButMustBeAText) {
  const auto titles = broken(attendanceJson(), Pointer(detail + "toolbar_text"));
  for (const std::size_t i : {0U, 1U}) {
    EXPECT_EQ(decoded(titles[i].dump())->page.pageDetail.toolbarText, std::nullopt);
  }
  EXPECT_TRUE(decoded(titles[2].dump())->page.pageDetail == unknown);
}

TEST(CampaignPresenceTest, AValueAroundTheDetailCostsTheReply) {
  const auto campaign = attendanceJson();
  for (const auto* const path :
       {"/id", "/label", "/name", "/icon", "/page", "/page/page_type", "/page/page_id"}) {
    for (const auto& each : broken(campaign, Pointer(path))) {
      EXPECT_FALSE(decoded(each.dump())) << each;
      EXPECT_THROW(decodedList(Json{campaign, each}.dump()), Error) << each;
    }
  }
  for (const auto& page : broken(campaign, Pointer("/page/page_id"))) {
    EXPECT_THROW(CampaignDTO::PageResponse::decode(page["page"].dump()), Error) << page;
  }
}

TEST(CampaignPresenceTest, UnknownKeysAreIgnoredAndOfDoubledOnesTheFirstCounts) {
  auto campaign = attendanceJson();
  const auto whole = decoded(campaign.dump());
  for (const auto* const object : {"", "/page", "/page/page_detail"}) {
    campaign[Pointer(object)]["hologram"] = {{"depth", 3}, {"Id", nullptr}};
  }
  EXPECT_TRUE(decoded(campaign.dump()) == whole);
  const auto members = attendanceJson().dump().substr(1);
  EXPECT_TRUE(decoded("{" + members.substr(0, members.size() - 1) + R"(,"id":5})") == whole);
  EXPECT_FALSE(decoded(R"({"id":5,)" + members));
}

}  // namespace
}  // namespace orrelo::test

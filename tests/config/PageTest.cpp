#include "base/Error.h"
#include "page/Entry.h"
#include "page/Page.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

using Fixed = Page::Fixed;

Page link(const std::string& url) {
  return Page::DeepLink{*Url::parse(url)};
}
Page campaign(const std::string& id) {
  return Page::Campaign{id};
}
Page decoded(const std::string& json) {
  JsonParser parser;
  return Page::decode(parser.parse(json));
}
Page entryOf(const std::string& json) {
  JsonParser parser;
  return Page::fromPageEntry(parser.parse(json).objectValue());
}

const std::vector<std::pair<std::string, Page>>& storedForms() {
  static const std::vector<std::pair<std::string, Page>> forms{
      {R"({"home":{}})", Fixed::home},
      {R"({"referral":{}})", Fixed::referral},
      {R"({"externalPointExchange":{}})", Fixed::externalPointExchange},
      {R"({"gifticon":{}})", Fixed::gifticon},
      {R"({"pointRedemptionHistory":{}})", Fixed::pointRedemptionHistory},
      {R"({"unknown":{}})", Fixed::unknown},
      {R"({"deepLink":{"url":"shop://item/1?a=b"}})", link("shop://item/1?a=b")},
      {R"({"campaign":{"id":"캠페인\"1\""}})", campaign("캠페인\"1\"")},
  };
  return forms;
}

TEST(PageTest, TheStoredFormReadsBack) {
  for (const auto& [json, page] : storedForms()) {
    JsonWriter writer;
    page.encode(writer);
    EXPECT_EQ(writer.result(), json);
    EXPECT_EQ(decoded(json), page) << json;
  }
  EXPECT_EQ(decoded(R"({"later":1,"home":{}})"), Page(Fixed::home));
  EXPECT_EQ(decoded(R"({"campaign":{"id":"a"},"campaign":{"id":"b"}})"), campaign("a"));
}

TEST(PageTest, AStoredFormNeedsExactlyOneKnownKey) {
  const std::string count = "Invalid number of keys found, expected one.";
  for (const auto& [json, caseName, message] : std::vector<std::tuple<std::string, std::string, std::string>>{
           {"{}", "typeMismatch", count},
           {R"({"home":{},"gifticon":{}})", "typeMismatch", count},
           {R"({"home":1})", "typeMismatch", ""},
           {R"({"campaign":{}})", "keyNotFound", ""},
           {R"({"campaign":{"id":1}})", "typeMismatch", ""},
           {R"({"deepLink":{"url":"a b"}})", "dataCorrupted", ""}}) {
    try {
      decoded(json);
      ADD_FAILURE() << json;
    } catch (const Error& error) {
      EXPECT_EQ(error.caseName(), caseName) << json;
      EXPECT_THAT(error.localizedDescription(), testing::HasSubstr(message)) << json;
    }
  }
}

TEST(PageTest, ADestinationAloneIsOneOfTheFixedPages) {
  for (const auto& [text, page] :
       std::vector<std::pair<std::string, Page>>{{"home", Fixed::home},
                                                 {"campaignList", Fixed::home},
                                                 {"referral", Fixed::referral},
                                                 {"gifticon", Fixed::gifticon},
                                                 {"externalPointExchange", Fixed::externalPointExchange},
                                                 {"pointRedemptionHistory", Fixed::pointRedemptionHistory},
                                                 {"campaign", Fixed::unknown},
                                                 {"deeplink", Fixed::unknown},
                                                 {"Home", Fixed::unknown},
                                                 {"", Fixed::unknown}}) {
    EXPECT_EQ(Page::fromDestination(text), page) << text;
    // An entry's type is read by the same rule, except for the two types with an argument.
    if (text != "campaign" && text != "deeplink") {
      EXPECT_EQ((EntryResponse{"id", text, "ignored"}.toEntry()), (Entry{"id", page})) << text;
    }
  }
}

TEST(PageTest, ARowWithABadLinkIsLoggedAndStays) {
  const LogCapture log;
  EXPECT_EQ((EntryResponse{"1", "deeplink", "shop://x"}.toEntry()), (Entry{"1", link("shop://x")}));
  EXPECT_EQ((EntryResponse{"2", "campaign", ""}.toEntry()), (Entry{"2", campaign("")}));
  EXPECT_THAT(log.lines(), testing::IsEmpty());
  EXPECT_EQ((EntryResponse{"3", "deeplink", "a b"}.toEntry()), (Entry{"3", Fixed::unknown}));
  EXPECT_THAT(log.lines(), testing::ElementsAre(
                               testing::AllOf(testing::HasSubstr("[ERROR]"),
                                              testing::EndsWith(" a b is an invalid paramter for the URL"))));
}

TEST(PageTest, ANotificationTakesTheFirstThatCanBeRead) {
  const std::vector<std::pair<EventDictionary, Page>> cases{
      {{{"deeplink", "shop://x"}, {"campaignId", "c"}, {"destination", "home"}}, link("shop://x")},
      {{{"deeplink", "a b"}, {"campaignId", "c"}}, campaign("c")},
      {{{"deeplink", 1}, {"campaignId", ""}, {"destination", "home"}}, Fixed::home},
      {{{"campaignId", 5}, {"destination", "campaignList"}}, Fixed::home},
      {{{"campaignId", nullptr}, {"destination", "campaign"}}, Fixed::unknown},
      {{{"campaign_id", "c"}}, Fixed::unknown},
      {{}, Fixed::unknown},
  };
  for (const auto& [userInfo, page] : cases) EXPECT_EQ(Page::fromUserInfo(userInfo), page);
}

TEST(PageTest, APageEntryTakesAnEmptyCampaignToo) {
  for (const auto& [json, page] : std::vector<std::pair<std::string, Page>>{
           {R"({"deeplink":"shop://x","campaign_id":"c"})", link("shop://x")},
           {R"({"deeplink":"","campaign_id":"c","destination":"home"})", campaign("c")},
           {R"({"deeplink":"a b","campaign_id":"","destination":"home"})", campaign("")},
           {R"({"deeplink":{},"campaign_id":null,"destination":"gifticon"})", Fixed::gifticon},
           {R"({"campaign_id":7,"destination":["home"]})", Fixed::unknown},
           {"{}", Fixed::unknown}}) {
    EXPECT_EQ(entryOf(json), page) << json;
  }
}

}  // namespace
}  // namespace orrelo::test

#include "base/Error.h"
#include "config/FetchConfigResponse.h"
#include "support/ServiceReplies.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

Config fetched(const std::string& json) {
  return FetchConfigResponse::decode(json).toConfig();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const auto at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(FetchConfigResponseTest, AReplyBecomesAConfiguration) {
  const auto config = fetched(configReply());
  const Config expected{
      .sdkEnable = true,
      .pollingIntervalMillis = 60000,
      .autoSwipeIntervalMillis = 3000,
      .appStoreUrl = "https://store.example/app",
      .isPollingEnabled = true,
      .plugin = {true, ExternalPointPlugin({"포인트", "교환", "https://pay.example/"}), false},
      .brandTheme = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
      .entries = {{"main", Page::Fixed::home}, {"event", Page::Campaign{"c-1"}}},
  };
  EXPECT_EQ(config, expected);
}

TEST(FetchConfigResponseTest, OptionalAndTolerantFieldsAreRead) {
  EXPECT_EQ(
      fetched(replaced(configReply(), R"("app_install_link":"https://store.example/app",)", "")).appStoreUrl,
      "");
  EXPECT_EQ(fetched(replaced(configReply(), R"("https://store.example/app")", "null")).appStoreUrl, "");
  EXPECT_FALSE(fetched(replaced(configReply(), "\"Polling\"", "\"polling\"")).isPollingEnabled);
  EXPECT_EQ(fetched(replaced(configReply(), "60000", "6e4")).pollingIntervalMillis, 60000);
  EXPECT_EQ(fetched(replaced(configReply(), "#FF0000", "red")).brandTheme.primary, Color{});
  const auto disabled = fetched(replaced(configReply(), R"("is_enabled":true)", R"("is_enabled":false)"));
  EXPECT_EQ(disabled.plugin.externalPointPlugin, ExternalPointPlugin());
}

TEST(FetchConfigResponseTest, EveryRequiredFieldMustBeThereWithItsType) {
  const std::vector<std::string> fields{R"("sdk_enable":true)",
                                        R"("notification_polling_interval":60000)",
                                        R"("auto_swipe_interval":3000)",
                                        R"("push_service_setting":"Polling")",
                                        R"("main":"#FF0000")",
                                        R"("sub1":"#00FF00")",
                                        R"("sub2":"#0000FF")",
                                        R"("pointsystem":true)",
                                        R"("gifticon":false)",
                                        R"("is_enabled":true)",
                                        R"("entry_view_message":"포인트")",
                                        R"("exchange_text":"교환")",
                                        R"("landing_url":"https://pay.example/")",
                                        R"("id":"main")",
                                        R"("destination_type":"home")",
                                        R"("destination":"")"};
  const auto refusal = [](const std::string& json) {
    try {
      FetchConfigResponse::decode(json);
      return std::string();
    } catch (const Error& error) {
      return error.caseName();
    }
  };
  for (const auto& field : fields) {
    const auto key = field.substr(0, field.find(':') + 1);
    EXPECT_EQ(refusal(replaced(configReply(), field, "\"x\":0")), "keyNotFound") << key;
    EXPECT_EQ(refusal(replaced(configReply(), field, key + "null")), "valueNotFound") << key;
    EXPECT_EQ(refusal(replaced(configReply(), field, key + "[]")), "typeMismatch") << key;
    EXPECT_EQ(refusal(replaced(configReply(), field, key + "1.5")), "typeMismatch") << key;
  }
  for (const std::string key : {"color", "plugins", "naverpay", "entries"}) {
    EXPECT_EQ(refusal(replaced(configReply(), '"' + key + "\":", "\"x\":")), "keyNotFound") << key;
    EXPECT_EQ(refusal(replaced(configReply(), '"' + key + "\":", '"' + key + "\":1,\"x\":")), "typeMismatch")
        << key;
  }
  EXPECT_EQ(refusal(replaced(configReply(), "https://store.example/app\"", "\",\"app_install_link\":1")), "");
  EXPECT_EQ(refusal(replaced(configReply(), "\"https://store.example/app\"", "1")), "typeMismatch");
  EXPECT_EQ(refusal(replaced(configReply(), R"({"id":"main",)", R"(null,{"id":"main",)")), "typeMismatch");
}

TEST(ConfigTest, TheStoredFormKeepsItsKeysAndReadsBack) {
  const auto config = fetched(configReply());
  EXPECT_EQ(
      config.encode(),
      R"({"sdkEnable":true,"pollingIntervalMillis":60000,"autoSwipeIntervalMillis":3000,)"
      R"("appStoreUrl":"https://store.example/app","isPollingEnabled":true,)"
      R"("plugin":{"pointSystem":true,"externalPointPlugin":{"enabled":{"entryViewMessage":"포인트",)"
      R"("exchangeText":"교환","landingUrl":"https://pay.example/"}},"gifticon":false},)"
      R"("brandTheme":{"primary":"#ff0000","seconary":"#00ff00","seconaryVariant":"#0000ff"},)"
      R"("entries":[{"pageId":"main","page":{"home":{}}},{"pageId":"event","page":{"campaign":{"id":"c-1"}}}]})");
  EXPECT_EQ(Config::decode(config.encode()), config);

  const auto opaque = Config::decode(Config::defaults().encode());  // a colour's alpha is not stored
  EXPECT_EQ(opaque.brandTheme.seconary.alpha, 1.0);
  EXPECT_EQ(opaque.plugin, Config::defaults().plugin);
  for (const auto* const bad :
       {R"({"enabled":{},"disabled":{}})", "{}", R"({"disabled":1})", R"({"enabled":{}})"}) {
    EXPECT_THROW(Config::decode(replaced(Config::defaults().encode(), R"({"disabled":{}})", bad)), Error)
        << bad;
  }
}

}  // namespace
}  // namespace orrelo::test

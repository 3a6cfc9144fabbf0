// The records of vouchers on the wire, their mapping, and both calls.
#include "base/Error.h"
#include "network/HTTPClient.h"
#include "reactive/Observable.h"
#include "rewards/gifticon/GifticonRemoteDTO.h"
#include "rewards/gifticon/GifticonService.h"
#include "rewards/gifticon/GifticonViewCell.h"
#include "support/Json.h"
#include "support/TestPlatform.h"
#include "viewkit/legibility.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

Json voucher() {
  return {{"id", "g-1"},     {"tag_text", "카페"},
          {"title", "라떼"}, {"date", "2026-12-31T00:00:00Z"},
          {"state", "idle"}, {"image_url", "https://a/1.png"}};
}

/// What decoding and mapping one voucher gives: the name of its state, or the error.
std::string outcome(const Json& row) {
  try {
    const auto rows = GifticonRemoteDTO::decodeList(Json::array({row}).dump());
    const auto state = rows.at(0).map().state;
    static constexpr std::array names{"published", "idle", "expired", "used", "canceled"};
    const auto* const published = std::get_if<Gifticon::Published>(&state);
    return names.at(state.index()) + (published != nullptr ? " " + published->imageUrl : "");
  } catch (const Error& error) {
    return error.domain() == "DecodingError" ? "undecodable" : error.localizedDescription();
  }
}

std::string outcomeOf(const std::string& key, const Json& value) {
  auto row = voucher();
  row[key] = value;
  return outcome(row);
}

TEST(GifticonRemoteDTOTest, TheStateDecides) {
  struct Case {
    Json state;
    Json imageUrl;
    std::string result;
  };
  for (const auto& [state, imageUrl, result] : std::vector<Case>{
           {"idle", "https://a/1.png", "idle"},
           {"downloaded", "https://a/1.png", "published https://a/1.png"},
           {"downloaded", "", "published "},
           {"downloaded", nullptr, "MappingError.unknownState"},
           {"expired", nullptr, "expired"},
           {"used", nullptr, "used"},
           {"canceled", nullptr, "canceled"},
           {"pending", nullptr, "MappingError.unknownState"},
           {"Idle", nullptr, "MappingError.unknownState"},
           {"idle ", nullptr, "MappingError.unknownState"},
           {"", nullptr, "MappingError.unknownState"},
       }) {
    auto row = voucher();
    row["state"] = state;
    row["image_url"] = imageUrl;
    EXPECT_EQ(outcome(row), result) << state;
    if (imageUrl == nullptr) {
      row.erase("image_url");
      EXPECT_EQ(outcome(row), result) << state;
    }
  }
  auto row = voucher();
  row["state"] = "pending";
  row["date"] = "never";
  EXPECT_EQ(outcome(row), "MappingError.unknownState") << "the state is checked first";
}

TEST(GifticonRemoteDTOTest, EveryFieldButThePictureIsRequired) {
  const std::string huge(1 << 20, 'x');
  const std::vector<Json> wrong{Json::array(), Json::object(), true, -1, 9223372036854775808ULL, 1e308};
  const auto whole = voucher();
  for (const auto& [key, value] : whole.items()) {
    const bool isRequired = key != "image_url";
    auto row = voucher();
    row.erase(key);
    EXPECT_EQ(outcome(row), isRequired ? "undecodable" : "idle") << key;
    EXPECT_EQ(outcomeOf(key, nullptr), isRequired ? "undecodable" : "idle") << key;
    for (const auto& each : wrong) EXPECT_EQ(outcomeOf(key, each), "undecodable") << key << each;
  }
  for (const auto* const key : {"id", "tag_text", "title", "image_url"}) {
    EXPECT_EQ(outcomeOf(key, huge), "idle") << key;
    EXPECT_EQ(outcomeOf(key, ""), "idle") << key;
  }
  EXPECT_EQ(outcomeOf("date", huge), "MappingError.dateParsingError");
  EXPECT_EQ(outcomeOf("state", huge), "MappingError.unknownState");
  EXPECT_EQ(outcome(nullptr), "undecodable");
  for (const auto* const body : {"", "{}", "null", "[[]]", "[{}", "\"[]\""}) {
    EXPECT_THROW(GifticonRemoteDTO::decodeList(body), Error) << body;
  }
  EXPECT_TRUE(GifticonRemoteDTO::decodeList("[]").empty());
}

TEST(GifticonRemoteDTOTest, TheDateHasWholeSecondsAndIsShownInUtc) {
  const auto shown = [](const std::string& date) -> std::string {
    auto row = voucher();
    row["date"] = date;
    if (outcome(row) != "idle") return outcome(row);
    const auto gifticon = GifticonRemoteDTO::decodeList(Json::array({row}).dump()).at(0).map();
    return GifticonViewCell::of(gifticon, {}).limitDateLabel;
  };
  for (const auto& [date, text] : std::map<std::string, std::string>{
           {"2025-01-01T01:00:00+09:00", "2024년 12월 31일까지 발급 가능"},
           {"2026-03-05T23:59:59Z", "2026년 3월 5일까지 발급 가능"},
           {"2026-03-05T23:59:59", "2026년 3월 5일까지 발급 가능"},
           {"2026-03-05t23:59:59-0100", "2026년 3월 6일까지 발급 가능"},
           {"0001-01-01T00:00:00Z", "1년 1월 1일까지 발급 가능"},
           {"9999-12-31T23:59:59Z", "9999년 12월 31일까지 발급 가능"},
       }) {
    EXPECT_EQ(shown(date), text) << date;
  }
  for (const auto* const date :
       {"", "2026-03-05", "2026-02-30T00:00:00Z", "2026-03-05T00:00:00.5Z", "2026-03-05 00:00:00",
        "12026-03-05T00:00:00Z", "2026-13-05T00:00:00Z", "내일"}) {
    EXPECT_EQ(shown(date), "MappingError.dateParsingError") << date;
  }
}

TEST(GifticonViewCellTest, EachStateHasItsTextsItsIconAndItsTap) {
  struct Case {
    Gifticon::State state;
    std::string date;
    std::string icon;
    double alpha;
    std::string label;
    bool isEnabled;
  };
  const BrandTheme theme{.primary = Color::fromHex("#FFEE00"), .seconary = {}, .seconaryVariant = {}};
  for (const auto& [state, date, icon, alpha, label, isEnabled] : std::vector<Case>{
           {Gifticon::Idle(), "2026년 12월 31일까지 발급 가능", "orl_ic_arrow_down", 1.0, "발급하기", true},
           {Gifticon::Published{""}, "2026년 12월 31일까지 사용 가능", "orl_ic_barcode", 1.0, "기프티콘 보기",
            true},
           {Gifticon::Expired(), "2026년 12월 31일에 만료", "orl_ic_barcode", 1.0, "기간 만료", false},
           {Gifticon::Used(), "2026년 12월 31일", "orl_ic_check", 1.0, "사용 완료", false},
           {Gifticon::Canceled(), "2026년 12월 31일", "orl_ic_barcode", 0.3, "발행 취소", false},
       }) {
    const Gifticon gifticon{"g", "카페", "라떼", Date::fromSeconds(1798675200), state};
    const auto cell = GifticonViewCell::of(gifticon, theme);
    EXPECT_EQ(cell, (GifticonViewCell{.tagLabel = "카페",
                                      .titleLabel = "라떼",
                                      .limitDateLabel = date,
                                      .iconAsset = icon,
                                      .iconAlpha = alpha,
                                      .iconLabel = label,
                                      .iconLabelColor = cell.iconLabelColor,
                                      .isEnabled = isEnabled,
                                      .accessibilityLabel = "카페, 라떼, " + date + ", " + label}));
    EXPECT_GE(contrastToWhite(cell.iconLabelColor), 3.0) << "whatever the brand's colour is";
  }
  const Gifticon bare{"g", "", "라떼", Date::fromSeconds(0), Gifticon::Used()};
  EXPECT_EQ(GifticonViewCell::of(bare, theme).accessibilityLabel, "라떼, 1970년 1월 1일, 사용 완료");
}

TEST(GifticonServiceTest, BothCallsNameTheUserAndFailAsAWhole) {
  TestPlatform platform;
  GifticonServiceImpl service(
      {"https://api.example/sdk/shop", {{"Kelso-UUID", "u"}, {"buid", "nobody"}}},
      std::make_shared<HTTPClientImpl>(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInitiated));
  std::vector<std::string> heard;
  const auto ask = [&](const reactive::Observable<std::vector<Gifticon>>& call, int status,
                       const std::string& body) {
    heard.clear();
    const auto handle =
        call.subscribe({.onNext =
                            [&](const auto& list) {
                              for (const auto& each : list) heard.push_back(each.id);
                            },
                        .onError = [&](const Error& error) { heard.push_back(error.localizedDescription()); },
                        .onCompleted = [&] { heard.emplace_back("done"); }});
    platform.session->answer(ScriptedURLSession::reply(status, body));
    platform.loop->run();
    return heard;
  };
  auto second = voucher();
  second["id"] = "a-2";
  const auto list = Json::array({voucher(), second}).dump();
  EXPECT_THAT(ask(service.fetch("minji"), 200, list), ElementsAre("g-1", "a-2", "done"));
  EXPECT_THAT(ask(service.publish("g \"1\"", "minji"), 200, list), ElementsAre("g-1", "a-2", "done"));
  const auto& requests = platform.session->requests;
  EXPECT_EQ(requests.at(0).method, "GET");
  EXPECT_EQ(requests.at(0).url.text(), "https://api.example/sdk/shop/gifticons");
  EXPECT_EQ(requests.at(0).headers, (HTTPHeaders{{"Kelso-UUID", "u"}, {"buid", "minji"}}));
  EXPECT_EQ(requests.at(1).method, "POST");
  EXPECT_EQ(requests.at(1).url.text(), "https://api.example/sdk/shop/gifticons/download");
  EXPECT_EQ(requests.at(1).headers,
            (HTTPHeaders{{"Kelso-UUID", "u"}, {"buid", "minji"}, {"Content-Type", "application/json"}}));
  EXPECT_EQ(requests.at(1).body, R"({"gifticon_id":"g \"1\""})");

  second["state"] = "pending";
  EXPECT_THAT(ask(service.fetch("minji"), 200, Json::array({voucher(), second}).dump()),
              ElementsAre("MappingError.unknownState"));
  EXPECT_THAT(ask(service.publish("g-1", "minji"), 500, list),
              ElementsAre("NetworkError.invalidHttpStatusCode"));
}

}  // namespace
}  // namespace orrelo::test

#include "CampaignReplies.h"
#include "core/base/Error.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <optional>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

template <class Detail>
const Detail* as(const CampaignDTO& dto) {
  return std::get_if<Detail>(&dto.page.pageDetail.kind);
}
bool isUnknown(const CampaignDTO& dto) {
  return dto.page.pageDetail == PageDetailDTO{UnknownCampaignDetailDTO{}, "이벤트"};
}

TEST(CampaignWireTest, EveryFieldOfAReplyArrives) {
  const auto list = decodedList(storedReply("list.json"));
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].id, "c-attendance-11");
  EXPECT_EQ(list[0].label, "출석체크");
  EXPECT_EQ(list[0].name, "11월 매일 출석체크");
  EXPECT_EQ(list[0].iconUrl, "https://cdn.example/icon/attendance.png");
  EXPECT_EQ(list[0].page.pageType, "attendance");
  EXPECT_EQ(list[0].page.pageId, "p-attendance-11");
  EXPECT_EQ(list[0].page.pageDetail.toolbarText, "출석체크");
  const AttendanceCampaignPageDetailDTO attendance{
      .firstTitle = "매일매일 출석하고",
      .secondTitle = "포인트 받아가세요!",
      .statusMessage = "오늘까지 3일 출석했어요",
      .today = "2026-11-21",
      .attendedDate = {"2026-11-01", "2026-11-02", "2026-11-20"},
      .highlightDate = {"2026-11-07", "2026-11-14", "2026-11-20", "2026-11-21"},
      .highlightIcon = "https://cdn.example/icon/gift.png",
      .buttonEnable = true,
      .buttonText = "출석체크 하기",
      .buttonUrl = "/campaigns/c-attendance-11/attend",
      .calendarDescription = {"이번 달에는", "7일마다 보너스!"},
      .color = "#FF5A5F",
      .highlightColor = "#FFE08A",
      .guideMessage = "하루에 한 번 출석할 수 있어요.\n자정이 지나면 다시 출석할 수 있어요.",
      .notice = {"출석은 하루에 한 번만 인정됩니다.", "적립된 포인트는 30일 후 사라집니다."},
      .imageUrl = "https://cdn.example/image/attendance.png",
      .rewardMessage = RewardMessageDTO{"축하합니다 🎉", "100 포인트를 받았어요.", "확인"},
  };
  ASSERT_TRUE(as<AttendanceCampaignPageDetailDTO>(list[0]));
  EXPECT_EQ(*as<AttendanceCampaignPageDetailDTO>(list[0]), attendance);
  const CampaignResultPageDTO result{
      "https://cdn.example/image/result.png",
      "응모해 주셔서 감사합니다.\n당첨자는 개별로 안내해 드려요.",
      {"당첨 발표: 11월 30일", "경품은 사정에 따라 바뀔 수 있습니다."},
      PopUpDialogDTO{"응모 완료!", "럭키드로우", "https://cdn.example/image/pop_up.png", "닫기"}};
  ASSERT_TRUE(as<CampaignResultPageDTO>(list[1]));
  EXPECT_EQ(*as<CampaignResultPageDTO>(list[1]), result);
}

TEST(CampaignWireTest, TheFirstWordInAPageTypeDecidesItsKind) {
  // A detail that both readable kinds can be read from.
  auto json = attendanceJson();
  json["page"]["page_detail"].update(resultJson()["page"]["page_detail"]);
  const auto kindOf = [&json](const std::string& type) {
    json["page"]["page_type"] = type;
    const auto dto = CampaignDTO::decode(json.dump());
    if (as<AttendanceCampaignPageDetailDTO>(dto) != nullptr) return "attendance";
    if (as<CampaignResultPageDTO>(dto) != nullptr) return "result";
    if (as<DeprecatedPageDTO>(dto) != nullptr) return "deprecated";
    return isUnknown(dto) ? "unknown" : "?";
  };
  const std::map<std::string, std::string> kinds{
      {"attendance", "attendance"},
      {"daily_attendance_v2", "attendance"},
      {"result_of_attendance", "attendance"},
      {"referral_attendance", "attendance"},
      {"stamp_result", "unknown"},
      {"referral_result", "unknown"},
      {"marketing_result", "unknown"},
      {"custom_a_01", "deprecated"},
      {"custom_a_02", "deprecated"},
      {"custom_a_03", "unknown"},
      {"custom_a_01 ", "unknown"},
      {"custom_a_01_result", "result"},
      {"results", "result"},
      {"RESULT", "unknown"},
      {"Attendance", "unknown"},
      {"", "unknown"},
  };
  for (const auto& [type, kind] : kinds) EXPECT_EQ(kindOf(type), kind) << type;
}

TEST(CampaignWireTest, ADeprecatedPageIsNotEvenRead) {
  auto json = attendanceJson();
  json["page"]["page_type"] = "custom_a_02";
  json["page"]["page_detail"] = 5;
  EXPECT_EQ(CampaignDTO::decode(json.dump()).page.pageDetail, (PageDetailDTO{DeprecatedPageDTO{}, "이벤트"}));
}

TEST(CampaignWireTest, AFlagIsABooleanOrATextThatBeginsTrue) {
  const std::map<std::string, bool> texts{
      {"true", true}, {"TRUE", true}, {"Yes", true},  {"y", true},   {"tomorrow", true}, {"1", true},
      {"9", true},    {"007", true},  {" \t1", true}, {"+1", true},  {"-0003x", true},   {"0y", true},
      {"0", false},   {"", false},    {"000", false}, {"no", false}, {"false", false},   {"off", false},
      {"+-1", false}, {"- 1", false}, {"0 1", false}, {"예", false}, {"--1", false},     {" ", false}};
  auto json = attendanceJson();
  auto& flag = json["page"]["page_detail"]["button_enable"];
  const auto read = [&] {
    const auto dto = CampaignDTO::decode(json.dump());
    const auto* const detail = as<AttendanceCampaignPageDetailDTO>(dto);
    return detail != nullptr ? std::optional(detail->buttonEnable) : std::nullopt;
  };
  for (const auto& [text, expected] : texts) {
    flag = text;
    EXPECT_EQ(read(), expected) << '"' << text << '"';
  }
  flag = false;
  EXPECT_EQ(read(), false);
  flag = 1;
  EXPECT_EQ(read(), std::nullopt);
}

// What a field does with a value that does not fit it.
enum class Presence { outer, required, tolerant, optional, flexible };
enum class Type { text, texts, record, flag };
struct Field {
  Presence presence;
  Type type;
};

const std::map<std::string, Field>& outerFields() {
  static const std::map<std::string, Field> fields{
      {"id", {Presence::outer, Type::text}},      {"label", {Presence::outer, Type::text}},
      {"name", {Presence::outer, Type::text}},    {"icon", {Presence::outer, Type::text}},
      {"page", {Presence::outer, Type::record}},  {"page_type", {Presence::outer, Type::text}},
      {"page_id", {Presence::outer, Type::text}}, {"page_detail", {Presence::required, Type::record}},
  };
  return fields;
}

const std::map<std::string, Field>& detailFields() {
  static const std::map<std::string, Field> fields{
      {"first_title", {Presence::required, Type::text}},
      {"second_title", {Presence::required, Type::text}},
      {"status_message", {Presence::required, Type::text}},
      {"today", {Presence::required, Type::text}},
      {"attended_date", {Presence::required, Type::texts}},
      {"highlighted_date", {Presence::required, Type::texts}},
      {"highlight_icon", {Presence::tolerant, Type::text}},
      {"button_enable", {Presence::flexible, Type::flag}},
      {"button_text", {Presence::required, Type::text}},
      {"button_url", {Presence::required, Type::text}},
      {"calendar_description", {Presence::required, Type::texts}},
      {"color", {Presence::required, Type::text}},
      {"highlight_color", {Presence::required, Type::text}},
      {"guide_message", {Presence::required, Type::text}},
      {"notice", {Presence::required, Type::texts}},
      {"image_url", {Presence::tolerant, Type::text}},
      {"reward_message", {Presence::tolerant, Type::record}},
      {"toolbar_text", {Presence::optional, Type::text}},
      {"body", {Presence::required, Type::text}},
      {"pop_up", {Presence::tolerant, Type::record}},
  };
  return fields;
}

// Takes away what a tolerant or optional key has given.
void clear(CampaignDTO& dto, const std::string& key) {
  if (key == "toolbar_text") dto.page.pageDetail.toolbarText.reset();
  if (auto* const detail = std::get_if<AttendanceCampaignPageDetailDTO>(&dto.page.pageDetail.kind)) {
    if (key == "highlight_icon") detail->highlightIcon.reset();
    if (key == "image_url") detail->imageUrl.reset();
    if (key == "reward_message") detail->rewardMessage.reset();
  }
  if (auto* const detail = std::get_if<CampaignResultPageDTO>(&dto.page.pageDetail.kind)) {
    if (key == "pop_up") detail->popUpDialog.reset();
  }
}

struct Mutation {
  std::string name;
  /// In place of the value, as JSON; absent where the key goes. "$" stands for the value, "@" for the key.
  std::optional<std::string> replacement;
  /// The types that it fits.
  std::vector<Type> fits;
};

std::vector<Mutation> mutations() {
  const std::vector all{Type::text, Type::texts, Type::record, Type::flag};
  return {{"dropped", std::nullopt, {}},
          {"null", "null", {}},
          {"a number", "5", {}},
          {"a fraction", "1.5", {}},
          {"a boolean", "true", {Type::flag}},
          {"an empty record", "{}", {}},
          {"a list of null", "[null]", {}},
          {"an empty list", "[]", {Type::texts}},
          {"an empty text", "\"\"", {Type::text, Type::flag}},
          {"a megabyte", '"' + std::string(1 << 20, 'x') + '"', {Type::text, Type::flag}},
          {"doubled, the good one first", "$,@:5", all},
          {"doubled, the bad one first", "5,@:$", {}}};
}

// The document with the value at `path` replaced in its text.
std::string mutate(const Json& document, const Json::json_pointer& path, const Mutation& mutation) {
  auto copy = document;
  if (!mutation.replacement) {
    copy[path.parent_pointer()].erase(path.back());
    return copy.dump();
  }
  const auto value = copy[path].dump();
  copy[path] = "MUTATED";
  auto text = copy.dump();
  auto replacement = *mutation.replacement;
  if (const auto at = replacement.find('$'); at != std::string::npos) replacement.replace(at, 1, value);
  if (const auto at = replacement.find('@'); at != std::string::npos)
    replacement.replace(at, 1, '"' + path.back() + '"');
  return text.replace(text.find("\"MUTATED\""), 9, replacement);
}

std::optional<CampaignDTO> decoded(const std::string& json) {
  try {
    return CampaignDTO::decode(json);
  } catch (const Error& error) {
    EXPECT_EQ(error.domain(), "DecodingError");
    return std::nullopt;
  }
}

class PresenceTest : public testing::TestWithParam<int> {
 protected:
  // Mutates the field at `path`; whatever is wrong with it counts against `field`, which `key` names.
  void expectField(const std::string& path, const Field& field, Type type, const std::string& key) {
    for (const auto& mutation : mutations()) {
      SCOPED_TRACE(path + ": " + mutation.name);
      const auto dto = decoded(mutate(campaign_, Json::json_pointer(path), mutation));
      if (std::count(mutation.fits.begin(), mutation.fits.end(), type) > 0) {
        ASSERT_TRUE(dto);
        // A page type that fits may name another kind.
        EXPECT_TRUE(key == "page_type" ||
                    dto->page.pageDetail.kind.index() == whole_.page.pageDetail.kind.index());
        continue;
      }
      const bool isAbsent = !mutation.replacement || *mutation.replacement == "null";
      if (field.presence == Presence::outer) {
        EXPECT_FALSE(dto);
        continue;
      }
      ASSERT_TRUE(dto);
      if (field.presence == Presence::tolerant || (field.presence == Presence::optional && isAbsent)) {
        auto expected = whole_;
        clear(expected, key);
        EXPECT_NE(expected, whole_);
        EXPECT_EQ(*dto, expected);
      } else {
        EXPECT_TRUE(isUnknown(*dto));
        EXPECT_EQ(dto->name, whole_.name);
      }
    }
  }

  Json campaign_ = Json::parse(storedReply("list.json"))[static_cast<std::size_t>(GetParam())];
  CampaignDTO whole_ = CampaignDTO::decode(campaign_.dump());
};

TEST_P(PresenceTest, OuterFieldsFailTheReplyAndNoOthersDo) {
  for (const auto& [key, field] : outerFields()) {
    expectField((key.starts_with("page_") ? "/page/" : "/") + key, field, field.type, key);
  }
}

TEST_P(PresenceTest, DetailFieldsFailTheirPageAtMost) {
  const auto& detail = campaign_["page"]["page_detail"];
  int seen = 0;
  for (const auto& [key, value] : detail.items()) {
    const auto found = detailFields().find(key);
    if (found == detailFields().end()) continue;
    ++seen;
    auto field = found->second;
    const bool isResult = GetParam() == 1;
    if (isResult && key == "image_url") field.presence = Presence::required;
    const auto path = "/page/page_detail/" + key;
    expectField(path, field, field.type, key);
    // Elements and the fields of records are all required, and count against what they stand in.
    if (field.type != Type::texts && field.type != Type::record) continue;
    for (const auto& [inner, text] : value.items()) {
      if (field.type == Type::record) expectField(path + "/" + inner, field, Type::text, key);
    }
    for (const auto* const element : {"5", "null", "[]"}) {
      if (field.type != Type::texts) break;
      auto json = campaign_;
      json["page"]["page_detail"][key].push_back(Json::parse(element));
      EXPECT_TRUE(isUnknown(CampaignDTO::decode(json.dump()))) << key << " with " << element;
    }
  }
  EXPECT_EQ(seen, GetParam() == 0 ? 18 : 5);
}

TEST_P(PresenceTest, OneBadOuterFieldFailsAListAndABadPageDoesNot) {
  auto list = Json::parse(storedReply("list.json"));
  auto& campaign = list[static_cast<std::size_t>(GetParam())];
  campaign["page"]["page_detail"].erase("notice");
  const auto survivors = decodedList(list.dump());
  ASSERT_EQ(survivors.size(), 2U);
  EXPECT_TRUE(isUnknown(survivors[static_cast<std::size_t>(GetParam())]));
  EXPECT_FALSE(isUnknown(survivors[static_cast<std::size_t>(1 - GetParam())]));
  campaign["page"].erase("page_id");
  EXPECT_THROW(decodedList(list.dump()), Error);
}

INSTANTIATE_TEST_SUITE_P(Replies, PresenceTest, testing::Values(0, 1),
                         [](const auto& run) { return run.param == 0 ? "attendance" : "result"; });

TEST(CampaignWireTest, BodiesOfAnotherShapeFail) {
  const auto list = storedReply("list.json");
  for (const auto& body : {std::string(), std::string("{}"), std::string("null"), std::string("[[]]"),
                           std::string("[null]"), list.substr(0, list.size() / 2), "\xFF" + list}) {
    EXPECT_THROW(decodedList(body), Error) << body.substr(0, 20);
    EXPECT_THROW(CampaignDTO::decode(body), Error) << body.substr(0, 20);
    EXPECT_THROW(CampaignDTO::PageResponse::decode(body), Error) << body.substr(0, 20);
  }
  EXPECT_THROW(CampaignDTO::decode(list), Error);
  EXPECT_TRUE(decodedList("[]").empty());
}

TEST(CampaignWireTest, ParticipationAnswersWithAPageAlone) {
  const auto page = CampaignDTO::PageResponse::decode(storedReply("participation.json"));
  EXPECT_EQ(page.pageDetail.toolbarText, std::nullopt);
  const auto& detail = std::get<AttendanceCampaignPageDetailDTO>(page.pageDetail.kind);
  EXPECT_FALSE(detail.buttonEnable);
  EXPECT_EQ(detail.highlightIcon, std::nullopt);
  EXPECT_THAT(detail.calendarDescription, ElementsAre("이번 달에는"));
  EXPECT_EQ(detail.rewardMessage->body, "보너스 500 포인트!");
}

}  // namespace
}  // namespace orrelo::test

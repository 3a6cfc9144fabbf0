// Each field of the service's replies, mutated in every way, against what its presence allows.
#include "CampaignReplies.h"
#include "core/base/Error.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace orrelo::test {
namespace {

using Attendance = AttendanceCampaignPageDetailDTO;
using Result = CampaignResultPageDTO;
using Pointer = Json::json_pointer;

// What a value that does not fit its field costs.
enum class Presence {
  outer,     // the reply
  required,  // the page's detail
  tolerant,  // the field, or the record that holds it
  optional,  // nothing where it is missing or null; else the page's detail
};
enum class Type { text, texts, record, flag };

struct Field {
  std::string path;
  Presence presence;
  Type type;
  // Gives the field a value that fits, and null to what has a presence without one.
  std::function<void(CampaignDTO&, const Json&)> put;
};

void read(std::string& text, const Json& value) {
  text = value.get<std::string>();
}
void read(std::vector<std::string>& texts, const Json& value) {
  texts = value.get<std::vector<std::string>>();
}
void read(bool& flag, const Json& value) {
  flag = value.is_boolean() && value.get<bool>();
}
void read(std::optional<std::string>& text, const Json& value) {
  text = value.is_null() ? std::nullopt : std::optional(value.get<std::string>());
}

template <class Member>
constexpr Type typeOf = std::is_same_v<Member, bool>                       ? Type::flag
                        : std::is_same_v<Member, std::vector<std::string>> ? Type::texts
                                                                           : Type::text;

Field outer(const std::string& path, std::string CampaignDTO::*member) {
  return {path, Presence::outer, Type::text,
          [member](auto& dto, const auto& value) { read(dto.*member, value); }};
}

template <class Detail, class Member>
Field detail(const std::string& key, Presence presence, Member Detail::*member) {
  return {"/page/page_detail/" + key, presence, typeOf<Member>, [member](auto& dto, const auto& value) {
            read(std::get<Detail>(dto.page.pageDetail.kind).*member, value);
          }};
}

// A record that may be absent.
template <class Detail, class Record>
Field record(const std::string& key, std::optional<Record> Detail::*member) {
  return {"/page/page_detail/" + key, Presence::tolerant, Type::record,
          [member](auto& dto, const auto&) { (std::get<Detail>(dto.page.pageDetail.kind).*member).reset(); }};
}

// A text within such a record.
template <class Detail, class Record>
Field inner(const std::string& path, std::optional<Record> Detail::*member, std::string Record::*text) {
  return {"/page/page_detail/" + path, Presence::tolerant, Type::text, [=](auto& dto, const auto& value) {
            auto& record = std::get<Detail>(dto.page.pageDetail.kind).*member;
            if (value.is_null()) {
              record.reset();
            } else {
              read((*record).*text, value);
            }
          }};
}

const PageDetailDTO unknown{UnknownCampaignDetailDTO{}, "이벤트"};

std::vector<Field> fieldsOfAll() {
  return {
      outer("/id", &CampaignDTO::id),
      outer("/label", &CampaignDTO::label),
      outer("/name", &CampaignDTO::name),
      outer("/icon", &CampaignDTO::iconUrl),
      {"/page", Presence::outer, Type::record, {}},
      {"/page/page_type", Presence::outer, Type::text,
       [](auto& dto, const auto& value) {
         read(dto.page.pageType, value);
         dto.page.pageDetail = unknown;
       }},
      {"/page/page_id", Presence::outer, Type::text,
       [](auto& dto, const auto& value) { read(dto.page.pageId, value); }},
      {"/page/page_detail", Presence::required, Type::record, {}},
      {"/page/page_detail/toolbar_text", Presence::optional, Type::text,
       [](auto& dto, const auto& value) { read(dto.page.pageDetail.toolbarText, value); }},
  };
}

std::vector<Field> attendanceFields() {
  return {
      detail("first_title", Presence::required, &Attendance::firstTitle),
      detail("second_title", Presence::required, &Attendance::secondTitle),
      detail("status_message", Presence::required, &Attendance::statusMessage),
      detail("today", Presence::required, &Attendance::today),
      detail("attended_date", Presence::required, &Attendance::attendedDate),
      detail("highlighted_date", Presence::required, &Attendance::highlightDate),
      detail("highlight_icon", Presence::tolerant, &Attendance::highlightIcon),
      detail("button_enable", Presence::required, &Attendance::buttonEnable),
      detail("button_text", Presence::required, &Attendance::buttonText),
      detail("button_url", Presence::required, &Attendance::buttonUrl),
      detail("calendar_description", Presence::required, &Attendance::calendarDescription),
      detail("color", Presence::required, &Attendance::color),
      detail("highlight_color", Presence::required, &Attendance::highlightColor),
      detail("guide_message", Presence::required, &Attendance::guideMessage),
      detail("notice", Presence::required, &Attendance::notice),
      detail("image_url", Presence::tolerant, &Attendance::imageUrl),
      record("reward_message", &Attendance::rewardMessage),
      inner("reward_message/title", &Attendance::rewardMessage, &RewardMessageDTO::title),
      inner("reward_message/body", &Attendance::rewardMessage, &RewardMessageDTO::body),
      inner("reward_message/button_text", &Attendance::rewardMessage, &RewardMessageDTO::buttonText),
  };
}

std::vector<Field> resultFields() {
  return {
      detail("image_url", Presence::required, &Result::imageUrl),
      detail("body", Presence::required, &Result::body),
      detail("notice", Presence::required, &Result::notice),
      record("pop_up", &Result::popUpDialog),
      inner("pop_up/title", &Result::popUpDialog, &PopUpDialogDTO::title),
      inner("pop_up/label", &Result::popUpDialog, &PopUpDialogDTO::label),
      inner("pop_up/image_url", &Result::popUpDialog, &PopUpDialogDTO::imageUrl),
      inner("pop_up/button_text", &Result::popUpDialog, &PopUpDialogDTO::buttonText),
  };
}

struct Mutation {
  std::string name;
  // In place of the value, as JSON; absent where the key goes. "$" stands for the value, "@" for the key.
  std::optional<std::string> replacement;
  // The types that it fits.
  std::vector<Type> fits;
};

const std::vector<Mutation>& mutations() {
  const auto megabyte = '"' + std::string(1 << 20, 'x') + '"';
  static const std::vector<Mutation> all{
      {"dropped", std::nullopt, {}},
      {"null", "null", {}},
      {"a number", "5", {}},
      {"a fraction", "1.5", {}},
      {"a number of more than 64 bits", "123456789012345678901", {}},
      {"true", "true", {Type::flag}},
      {"false", "false", {Type::flag}},
      {"an empty record", "{}", {}},
      {"an empty list", "[]", {Type::texts}},
      {"an empty text", "\"\"", {Type::text, Type::flag}},
      {"a list of texts", R"(["x","","🎉"])", {Type::texts}},
      {"a list that ends with a number", R"(["x",5])", {}},
      {"a list that begins with null", R"([null,"x"])", {}},
      {"a list of lists", "[[]]", {}},
      {"a list of records", "[{}]", {}},
      {"a list of flags", "[true]", {}},
      {"a megabyte", megabyte, {Type::text, Type::flag}},
      {"a list of a megabyte", '[' + megabyte + ']', {Type::texts}},
      {"a record of a megabyte", "{\"x\":" + megabyte + '}', {}},
      {"doubled, the good one first", "$,@:5", {Type::text, Type::texts, Type::record, Type::flag}},
      {"doubled, the bad one first", "5,@:$", {}},
  };
  return all;
}

bool isDoubled(const Mutation& mutation) {
  return mutation.replacement && mutation.replacement->find('@') != std::string::npos;
}

// The text of the document with the value at `path` replaced.
std::string mutate(Json document, const Pointer& path, const Mutation& mutation) {
  if (!mutation.replacement) {
    document[path.parent_pointer()].erase(path.back());
    return document.dump();
  }
  const auto value = document[path].dump();
  document[path] = "MUTATED";
  auto text = document.dump();
  auto replacement = *mutation.replacement;
  if (isDoubled(mutation)) {
    replacement.replace(replacement.find('$'), 1, value);
    replacement.replace(replacement.find('@'), 1, '"' + path.back() + '"');
  }
  return text.replace(text.find("\"MUTATED\""), 9, replacement);
}

// Absent where decoding fails.
template <class Decode>
auto decoded(Decode decode) -> std::optional<decltype(decode())> {
  try {
    return decode();
  } catch (const Error& error) {
    EXPECT_EQ(error.domain(), "DecodingError");
    return std::nullopt;
  }
}

class CampaignPresenceTest : public testing::TestWithParam<int> {
 protected:
  std::vector<Field> fields() const {
    auto fields = fieldsOfAll();
    const auto more = GetParam() == 0 ? attendanceFields() : resultFields();
    fields.insert(fields.end(), more.begin(), more.end());
    return fields;
  }

  // What must come of the campaign with this mutation of this field.
  std::optional<CampaignDTO> expected(const Field& field, const Mutation& mutation) const {
    const bool isAbsent = !mutation.replacement || *mutation.replacement == "null";
    auto dto = whole_;
    if (std::count(mutation.fits.begin(), mutation.fits.end(), field.type) > 0) {
      if (!isDoubled(mutation)) field.put(dto, Json::parse(*mutation.replacement));
    } else if (field.presence == Presence::outer) {
      return std::nullopt;
    } else if (field.presence == Presence::tolerant || (field.presence == Presence::optional && isAbsent)) {
      field.put(dto, nullptr);
      EXPECT_NE(dto, whole_) << "the reply has no value that could go";
    } else {
      dto.page.pageDetail = unknown;
    }
    return dto;
  }

  // The mutated campaign alone, as the last of a list, and its page as the reply to a participation.
  void expectEverywhere(const Pointer& path, const Mutation& mutation,
                        const std::optional<CampaignDTO>& expected) const {
    const auto json = mutate(campaign_, path, mutation);
    EXPECT_TRUE(decoded([&] { return CampaignDTO::decode(json); }) == expected);

    const auto list = decoded([&] { return decodedList('[' + unknownJson().dump() + ',' + json + ']'); });
    ASSERT_EQ(list.has_value(), expected.has_value());
    EXPECT_TRUE(!list || (list->size() == 2 && list->back() == expected));

    const auto text = path.to_string();
    if (!text.starts_with("/page/")) return;
    const Pointer withinPage(text.substr(std::string_view("/page").size()));
    const auto page = decoded(
        [&] { return CampaignDTO::PageResponse::decode(mutate(campaign_["page"], withinPage, mutation)); });
    EXPECT_TRUE(page == (expected ? std::optional(expected->page) : std::nullopt));
  }

  // The keys of the reply that no field has.
  void strangersOf(const Json& object, const Pointer& path, std::vector<Pointer>& strangers) const {
    const auto known = fields();
    for (const auto& [key, value] : object.items()) {
      const auto place = path / key;
      const bool isKnown = std::any_of(known.begin(), known.end(),
                                       [&](const Field& field) { return field.path == place.to_string(); });
      if (!isKnown) strangers.push_back(place);
      if (value.is_object()) strangersOf(value, place, strangers);
    }
  }

  Json campaign_ = Json::parse(storedReply("list.json"))[static_cast<std::size_t>(GetParam())];
  CampaignDTO whole_ = CampaignDTO::decode(campaign_.dump());
};

TEST_P(CampaignPresenceTest, AValueThatDoesNotFitCostsWhatItsFieldsPresenceSays) {
  for (const auto& field : fields()) {
    ASSERT_TRUE(campaign_.contains(Pointer(field.path))) << field.path;
    for (const auto& mutation : mutations()) {
      SCOPED_TRACE(field.path + ": " + mutation.name);
      expectEverywhere(Pointer(field.path), mutation, expected(field, mutation));
    }
  }
}

TEST_P(CampaignPresenceTest, AnUnknownKeyMayHoldAnything) {
  for (const auto* const object : {"", "/page", "/page/page_detail"}) {
    campaign_[Pointer(object)]["hologram"] = {{"depth", 3}, {"Id", nullptr}};
  }
  std::vector<Pointer> strangers;
  strangersOf(campaign_, Pointer(), strangers);
  EXPECT_GE(strangers.size(), 9U);
  for (const auto& path : strangers) {
    for (const auto& mutation : mutations()) {
      SCOPED_TRACE(path.to_string() + ": " + mutation.name);
      expectEverywhere(path, mutation, whole_);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Replies, CampaignPresenceTest, testing::Values(0, 1),
                         [](const auto& run) { return run.param == 0 ? "attendance" : "result"; });

}  // namespace
}  // namespace orrelo::test

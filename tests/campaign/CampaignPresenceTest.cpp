// Each field of the service's replies, mutated in every way, against what its presence allows.
#include "ReplyFields.h"
#include "base/Error.h"

#include <algorithm>
#include <map>
#include <optional>

namespace orrelo::test {
namespace {

using Pointer = Json::json_pointer;

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
      {"a number", "5", {Type::integer}},
      {"a number below zero", "-3", {Type::integer}},
      {"a fraction", "1.5", {}},
      {"a number of more than 64 bits", "123456789012345678901", {}},
      {"true", "true", {Type::flag}},
      {"false", "false", {Type::flag}},
      {"an empty record", "{}", {}},
      {"an empty list", "[]", {Type::texts, Type::records}},
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
      {"doubled, the good one first",
       "$,@:{}",
       {Type::text, Type::texts, Type::record, Type::records, Type::flag, Type::integer}},
      {"doubled, the bad one first", "{},@:$", {}},
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

/// A kind of reply: a stored one with every field, and what its own fields allow.
struct Kind {
  Json campaign;
  std::vector<Field> fields;
};

Kind kindOf(const std::string& name) {
  if (name == "attendance") return {attendanceJson(), attendanceFields()};
  if (name == "result") return {resultJson(), resultFields()};
  if (name == "stamp") return {Json::parse(storedReply("stamp.json")), stampFields()};
  return {Json::parse(storedReply("marketing.json")), marketingFields()};
}

class CampaignPresenceTest : public testing::TestWithParam<std::string> {
 protected:
  std::vector<Field> fields() const {
    auto fields = fieldsOfAll();
    const auto more = kindOf(GetParam()).fields;
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

  Json campaign_ = kindOf(GetParam()).campaign;
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

INSTANTIATE_TEST_SUITE_P(Replies, CampaignPresenceTest,
                         testing::Values("attendance", "result", "stamp", "marketing"),
                         [](const auto& run) { return run.param; });

}  // namespace
}  // namespace orrelo::test

#include "events/OLSEventMapper.h"

#include "base/DateFormat.h"
#include "base/JsonWriter.h"
#include "base/Utf8.h"
#include "base/numberText.h"
#include "events/EventValueDescription.h"

#include <orrelo/UnsupportedEventValueException.h>

#include <cmath>
#include <cstdio>
#include <optional>

namespace orrelo {
namespace {

// Deeper than any reply that the kit reads, and low enough not to overflow the stack.
constexpr int maximumDepth = 512;

// Writes values to JSON. The functions return false for a value that has no JSON form.
class JsonValueWriter {
 public:
  explicit JsonValueWriter(JsonWriter& json) : json_(json) {}

  bool write(const EventValue& value) {
    return std::visit([this](const auto& alternative) { return writeAs(alternative); }, value.variant());
  }

  bool writeAs(const EventArray& array) {
    if (++depth_ > maximumDepth) return false;
    json_.beginArray();
    for (const auto& element : array) {
      if (!write(element)) return false;
    }
    json_.endArray();
    --depth_;
    return true;
  }

  bool writeAs(const EventDictionary& dictionary) {
    if (++depth_ > maximumDepth) return false;
    json_.beginObject();
    for (const auto& [key, element] : dictionary) {
      json_.key(utf8::repaired(key));
      if (!write(element)) return false;
    }
    json_.endObject();
    --depth_;
    return true;
  }

 private:
  bool writeAs(std::monostate) { return json_.null(), true; }
  bool writeAs(bool value) { return json_.boolean(value), true; }
  bool writeAs(std::int64_t number) { return json_.integer(number), true; }
  bool writeAs(double number) { return std::isfinite(number) && (json_.number(number), true); }
  bool writeAs(const std::string& text) { return json_.text(utf8::repaired(text)), true; }
  // Dates, identifiers, URLs, sets, bytes and unknown types have no JSON form inside a collection.
  template <class Other>
  bool writeAs(const Other&) {
    return false;
  }

  JsonWriter& json_;
  int depth_ = 0;
};

template <class Collection>
std::optional<std::string> jsonText(const Collection& collection) {
  JsonWriter json;
  if (JsonValueWriter(json).writeAs(collection)) return std::move(json).result();
  std::fprintf(stderr, "%s is invalid JSON\n", description(collection).c_str());
  return std::nullopt;
}

void requireSupportedValue(const EventValue& value) {
  const auto& variant = value.variant();
  if (std::holds_alternative<std::monostate>(variant)) throw UnsupportedEventValueException("Null");
  if (std::holds_alternative<EventBytes>(variant)) throw UnsupportedEventValueException("Bytes");
  if (const auto* const other = std::get_if<EventOther>(&variant)) {
    throw UnsupportedEventValueException(other->typeName);
  }
}

// Converts a supported value at the top level to its text; nullopt for a collection without a JSON form.
struct TextConverter {
  using Text = std::optional<std::string>;

  Text operator()(bool value) const { return value ? "true" : "false"; }
  Text operator()(std::int64_t number) const { return numberText(number); }
  Text operator()(double number) const { return numberText(number); }
  Text operator()(const std::string& text) const { return utf8::repaired(text); }
  Text operator()(Date date) const { return formatDate(date, "yyyy-MM-dd HH:mm:ss Z"); }
  Text operator()(const Uuid& uuid) const { return uuid.text(); }
  Text operator()(const Url& url) const { return url.text(); }
  Text operator()(const EventArray& array) const { return jsonText(array); }
  Text operator()(const EventSet& set) const { return jsonText(set.elements); }
  Text operator()(const EventDictionary& dictionary) const { return jsonText(dictionary); }
  template <class Unsupported>
  Text operator()(const Unsupported&) const {
    return std::nullopt;
  }
};

}  // namespace

UnsupportedEventValueException::UnsupportedEventValueException(const std::string& typeName)
    : std::invalid_argument(typeName + " is not supported class"), name_("Not supported class") {}

void OLSEventMapper::requireSupported(const EventValues& values) {
  for (const auto& [key, value] : values) requireSupportedValue(value);
}

StringDictionary OLSEventMapper::map(const EventValues& values) const {
  StringDictionary texts;
  texts.reserve(values.size());
  for (const auto& [key, value] : values) {
    requireSupportedValue(value);
    if (auto text = std::visit(TextConverter{}, value.variant()))
      texts.set(utf8::repaired(key), *std::move(text));
  }
  return texts;
}

}  // namespace orrelo

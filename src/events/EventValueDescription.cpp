#include "events/EventValueDescription.h"

#include "base/DateFormat.h"
#include "base/numberText.h"

namespace orrelo {
namespace {

constexpr int describedDepth = 16;

struct Description {
  int depth = 0;

  std::string of(const EventValue& value) const {
    return depth == describedDepth ? "…" : std::visit(Description{depth + 1}, value.variant());
  }

  std::string operator()(std::monostate) const { return "<null>"; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(std::int64_t number) const { return numberText(number); }
  std::string operator()(double number) const { return numberText(number); }
  std::string operator()(const std::string& text) const { return '"' + text + '"'; }
  std::string operator()(Date date) const { return formatDate(date, "yyyy-MM-dd HH:mm:ss Z"); }
  std::string operator()(const Uuid& uuid) const { return uuid.text(); }
  std::string operator()(const Url& url) const { return url.text(); }
  std::string operator()(const EventArray& array) const {
    std::string text = "[";
    for (const auto& element : array) text += (text.size() > 1 ? ", " : "") + of(element);
    return text + "]";
  }
  std::string operator()(const EventSet& set) const { return (*this)(set.elements); }
  std::string operator()(const EventDictionary& dictionary) const {
    if (dictionary.empty()) return "[:]";
    std::string text = "[";
    for (const auto& [key, value] : dictionary) {
      text += (text.size() > 1 ? ", \"" : "\"") + key + "\": " + of(value);
    }
    return text + "]";
  }
  std::string operator()(const EventBytes& bytes) const { return std::to_string(bytes.size()) + " bytes"; }
  std::string operator()(const EventOther& other) const { return other.typeName; }
};

}  // namespace

std::string description(const EventArray& values) {
  return Description{}(values);
}

std::string description(const EventValues& values) {
  return Description{}(values);
}

}  // namespace orrelo

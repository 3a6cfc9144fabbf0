#include "ValueParser.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <optional>

namespace orrelo::console {
namespace {

template <class Number>
std::optional<Number> numberOf(std::string_view text) {
  Number number{};
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<Date> dateOf(const std::string& text) {
  int year = 0;
  unsigned month = 0, day = 0, hour = 0, minute = 0, second = 0;
  int length = 0;
  std::sscanf(text.c_str(), "%d-%u-%uT%u:%u:%uZ%n", &year, &month, &day, &hour, &minute, &second, &length);
  if (length == 0 || static_cast<std::size_t>(length) != text.size()) return std::nullopt;
  using namespace std::chrono;
  const year_month_day date{std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return Date(sys_days(date).time_since_epoch() + hours(hour) + minutes(minute) + seconds(second));
}

class Parser {
 public:
  explicit Parser(std::string_view text) : rest_(text) {}

  EventValue whole() {
    auto value = this->value("");
    skipBlanks();
    if (!rest_.empty()) fail("what is \"" + std::string(rest_) + "\"?");
    return value;
  }

 private:
  [[noreturn]] static void fail(const std::string& why) { throw SyntaxError(why); }

  void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

  bool take(std::string_view expected) {
    skipBlanks();
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
  }

  EventValue value(std::string_view stops) {
    if (take("\"")) return quoted();
    if (take("[")) return array();
    if (take("set[")) return EventSet(array());
    if (take("{")) return dictionary();
    if (take("date(")) return orFail(dateOf(until(')')), "a date is written date(2026-01-02T03:04:05Z)");
    if (take("uuid(")) return orFail(Uuid::parse(until(')')), "that is no UUID");
    if (take("url(")) return orFail(Url::parse(until(')')), "that is no URL");
    if (take("bytes(")) return EventBytes(until(')').size());
    const auto length = std::min(rest_.find_first_of(stops), rest_.size());
    const auto word = rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (word == "null") return nullptr;
    if (word == "true" || word == "false") return word == "true";
    if (const auto integer = numberOf<std::int64_t>(word)) return *integer;
    if (const auto number = numberOf<double>(word)) return *number;
    return word;
  }

  template <class T>
  static T orFail(std::optional<T> value, const std::string& why) {
    if (!value) fail(why);
    return *std::move(value);
  }

  std::string until(char end) {
    const auto place = rest_.find(end);
    if (place == std::string_view::npos) fail(std::string("a \"") + end + "\" is missing");
    std::string text(rest_.substr(0, place));
    rest_.remove_prefix(place + 1);
    return text;
  }

  std::string quoted() {
    std::string text;
    while (!rest_.empty() && rest_.front() != '"') {
      if (rest_.front() == '\\' && rest_.size() > 1) rest_.remove_prefix(1);
      text += rest_.front();
      rest_.remove_prefix(1);
    }
    if (!take("\"")) fail("a quote is missing");
    return text;
  }

  EventArray array() {
    EventArray elements;
    while (!take("]")) {
      elements.push_back(value(",]"));
      if (!take(",") && !rest_.starts_with(']')) fail("a \"]\" is missing");
    }
    return elements;
  }

  EventDictionary dictionary() {
    EventDictionary entries;
    while (!take("}")) {
      skipBlanks();
      const auto key = take("\"") ? quoted() : std::string();
      const auto name = key.empty() ? until(':') : key;
      if (!key.empty() && !take(":")) fail("a \":\" is missing");
      entries[name] = value(",}");
      if (!take(",") && !rest_.starts_with('}')) fail("a \"}\" is missing");
    }
    return entries;
  }

  std::string_view rest_;
};

}  // namespace

std::vector<std::string> splitWords(std::string_view line) {
  std::vector<std::string> words;
  std::string word;
  int depth = 0;
  bool isQuoted = false;
  for (const char c : line) {
    if (c == '"') isQuoted = !isQuoted;
    if (!isQuoted && (c == '[' || c == '{' || c == '(')) ++depth;
    if (!isQuoted && (c == ']' || c == '}' || c == ')')) --depth;
    if (c == ' ' && depth == 0 && !isQuoted) {
      if (!word.empty()) words.push_back(std::exchange(word, {}));
    } else {
      word += c;
    }
  }
  if (isQuoted || depth != 0) throw SyntaxError("a quote or a bracket stays open");
  if (!word.empty()) words.push_back(std::move(word));
  return words;
}

EventValue parseValue(std::string_view text) {
  return Parser(text).whole();
}

EventValues parseValues(const std::vector<std::string>& words) {
  EventValues values;
  for (const auto& word : words) {
    const auto equals = word.find('=');
    if (equals == std::string::npos || equals == 0) throw SyntaxError("\"" + word + "\" is not key=value");
    values[word.substr(0, equals)] = parseValue(std::string_view(word).substr(equals + 1));
  }
  return values;
}

}  // namespace orrelo::console

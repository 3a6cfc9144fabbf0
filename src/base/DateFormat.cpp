#include "base/DateFormat.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <date/date.h>

namespace orrelo {
namespace {

// One field of a pattern, or a literal character if `letter` is zero.
struct Token {
  char letter = 0;
  char literal = 0;
  std::size_t width = 0;
};

class PatternReader {
 public:
  explicit PatternReader(std::string_view pattern) : rest_(pattern) {}

  std::optional<Token> next() {
    while (!rest_.empty() && rest_.front() == '\'') {
      quoted_ = !quoted_;
      rest_.remove_prefix(1);
    }
    if (rest_.empty()) return std::nullopt;
    const char c = rest_.front();
    if (quoted_ || std::string_view("yMdHmsSZ").find(c) == std::string_view::npos) {
      rest_.remove_prefix(1);
      return Token{0, c, 1};
    }
    const auto width = std::min(rest_.find_first_not_of(c), rest_.size());
    rest_.remove_prefix(width);
    return Token{c, 0, width};
  }

 private:
  std::string_view rest_;
  bool quoted_ = false;
};

void appendPadded(std::string& text, std::int64_t number, std::size_t width) {
  auto digits = std::to_string(std::abs(number));
  if (number < 0) text += '-';
  text.append(width > digits.size() ? width - digits.size() : 0, '0');
  text += digits;
}

void appendOffset(std::string& text, std::chrono::seconds offset) {
  const auto minutes = std::abs(offset.count()) / 60;
  text += offset.count() < 0 ? '-' : '+';
  appendPadded(text, minutes / 60, 2);
  appendPadded(text, minutes % 60, 2);
}

std::optional<std::int64_t> takeNumber(std::string_view& text, std::size_t width) {
  if (text.size() < width) return std::nullopt;
  std::int64_t number = 0;
  for (const char c : text.substr(0, width)) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  text.remove_prefix(width);
  return number;
}

std::optional<std::int64_t> takeOffset(std::string_view& text) {
  if (text.empty() || (text.front() != '+' && text.front() != '-')) return std::nullopt;
  const std::int64_t sign = text.front() == '-' ? -1 : 1;
  text.remove_prefix(1);
  const auto hours = takeNumber(text, 2);
  const auto minutes = takeNumber(text, 2);
  if (!hours || !minutes || *hours > 23 || *minutes > 59) return std::nullopt;
  return sign * (*hours * 3600 + *minutes * 60);
}

struct Fields {
  std::int64_t year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0, microsecond = 0;

  std::int64_t* of(char letter) {
    switch (letter) {
      case 'y':
        return &year;
      case 'M':
        return &month;
      case 'd':
        return &day;
      case 'H':
        return &hour;
      case 'm':
        return &minute;
      case 's':
        return &second;
      default:
        return &microsecond;
    }
  }
};

std::optional<Date> dateOf(const Fields& fields, std::chrono::seconds offset) {
  const date::year_month_day day{date::year(static_cast<int>(fields.year)),
                                 date::month(static_cast<unsigned>(fields.month)),
                                 date::day(static_cast<unsigned>(fields.day))};
  if (!day.ok() || fields.hour > 23 || fields.minute > 59 || fields.second > 59) return std::nullopt;
  const auto time = date::sys_days(day).time_since_epoch() + std::chrono::hours(fields.hour) +
                    std::chrono::minutes(fields.minute) + std::chrono::seconds(fields.second) +
                    std::chrono::microseconds(fields.microsecond);
  return Date(time - offset);
}

}  // namespace

std::string formatDate(Date date, std::string_view pattern, std::chrono::seconds offset) {
  const date::sys_time<std::chrono::microseconds> time(date.sinceEpoch() + offset);
  const auto days = date::floor<date::days>(time);
  const date::year_month_day day(days);
  const date::hh_mm_ss clock(time - days);
  Fields fields{int(day.year()),           unsigned(day.month()),   unsigned(day.day()),
                clock.hours().count(),     clock.minutes().count(), clock.seconds().count(),
                clock.subseconds().count()};
  std::string text;
  PatternReader reader(pattern);
  while (const auto token = reader.next()) {
    if (token->letter == 0) {
      text += token->literal;
    } else if (token->letter == 'Z') {
      appendOffset(text, offset);
    } else {
      appendPadded(text, *fields.of(token->letter), token->width);
    }
  }
  return text;
}

std::optional<Date> parseDate(std::string_view text, std::string_view pattern, std::chrono::seconds offset) {
  if (pattern.empty()) return std::nullopt;
  Fields fields;
  PatternReader reader(pattern);
  while (const auto token = reader.next()) {
    if (token->letter == 0) {
      if (text.empty() || text.front() != token->literal) return std::nullopt;
      text.remove_prefix(1);
    } else if (token->letter == 'Z') {
      const auto parsed = takeOffset(text);
      if (!parsed) return std::nullopt;
      offset = std::chrono::seconds(*parsed);
    } else {
      const auto number = takeNumber(text, token->width);
      if (!number) return std::nullopt;
      *fields.of(token->letter) = *number;
    }
  }
  if (!text.empty()) return std::nullopt;
  return dateOf(fields, offset);
}

}  // namespace orrelo

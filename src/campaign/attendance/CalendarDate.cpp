#include "campaign/attendance/CalendarDate.h"

#include "core/base/DateFormat.h"

#include <charconv>

namespace orrelo {

CalendarDate CalendarDate::parse(std::string_view text) {
  if (!parseDate(text, "yyyy-MM-dd")) return {};
  const auto next = [&text] {
    const auto part = text.substr(0, text.find('-'));
    text.remove_prefix(part.size() < text.size() ? part.size() + 1 : part.size());
    int number = 0;
    std::from_chars(part.data(), part.data() + part.size(), number);
    return number;
  };
  const int year = next();
  const int month = next();
  return {year, month, next()};
}

}  // namespace orrelo

#pragma once

#include <orrelo/Date.h>

#include <chrono>
#include <string>

namespace orrelo {

/// A zone of the IANA time zone database, or the zone of this process.
class TimeZone {
 public:
  static TimeZone utc();
  /// What TZ says, else the system's local time.
  static TimeZone current();
  /// UTC where the database has no such zone.
  static TimeZone named(std::string identifier);

  /// "Asia/Seoul". For `current`, the zone whose name or file TZ holds, else the one behind the system's
  /// local time, "UTC" where there is none.
  const std::string& identifier() const { return identifier_; }
  /// East of Greenwich is positive.
  std::chrono::seconds offset(Date date) const;

 private:
  enum class Kind { utc, current, named };
  TimeZone(Kind kind, std::string identifier) : kind_(kind), identifier_(std::move(identifier)) {}

  Kind kind_;
  std::string identifier_;
};

}  // namespace orrelo

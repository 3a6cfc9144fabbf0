#pragma once

#include <orrelo/Date.h>

#include <chrono>
#include <string>

namespace orrelo {

/// A zone of the IANA time zone database, or the zone of this process.
class TimeZone {
 public:
  static TimeZone utc();
  /// The zone of the environment variable TZ, or else of the system's local time, as it is now.
  static TimeZone current();
  /// A zone by its identifier; behaves as UTC if the database has no such zone.
  static TimeZone named(std::string identifier);

  /// The IANA identifier, such as "Asia/Seoul". For `current`, the zone that TZ names by identifier or file,
  /// or else the zone that /etc/localtime links to; "UTC" if there is none.
  const std::string& identifier() const { return identifier_; }
  /// The offset from UTC at `date`; positive east of Greenwich.
  std::chrono::seconds offset(Date date) const;

 private:
  enum class Kind { utc, current, named };
  TimeZone(Kind kind, std::string identifier) : kind_(kind), identifier_(std::move(identifier)) {}

  Kind kind_;
  std::string identifier_;
};

}  // namespace orrelo

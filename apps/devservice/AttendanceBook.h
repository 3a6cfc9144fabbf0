#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// Who checked in to which campaign on which days ("yyyy-MM-dd"), in one SQLite file. Thread-safe; failures
/// of the database come as SQLite::Exception.
class AttendanceBook {
 public:
  struct Key {
    std::string appKey;
    std::string userId;
    std::string campaignId;
  };

  explicit AttendanceBook(const std::filesystem::path& file);

  /// False where that day was there already.
  bool checkIn(const Key& key, const std::string& day);
  /// In the order of the calendar.
  std::vector<std::string> days(const Key& key) const;

 private:
  mutable std::mutex mutex;
  mutable SQLite::Database database;
};

}  // namespace orrelo::devservice

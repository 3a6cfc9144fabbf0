#pragma once

#include "store/Records.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// The received requests. Keeps the last ones in full and counts all. Thread-safe.
class RequestLog {
 public:
  void add(RequestRecord record);
  std::vector<RequestRecord> records(const std::string& pathSuffix) const;
  std::int64_t count(const std::string& pathSuffix) const;
  bool waitFor(const std::string& pathSuffix, std::int64_t count, std::chrono::milliseconds timeout) const;

 private:
  std::int64_t countLocked(const std::string& pathSuffix) const;

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  std::deque<RequestRecord> latest_;
  std::map<std::string, std::int64_t> countByPath_;
};

}  // namespace orrelo::devservice

#include "http/RequestLog.h"

#include <utility>

namespace orrelo::devservice {

namespace {

constexpr std::size_t maxRecords = 10000;

}  // namespace

void RequestLog::add(RequestRecord record) {
  const std::lock_guard lock(mutex_);
  ++countByPath_[record.path];
  latest_.push_back(std::move(record));
  if (latest_.size() > maxRecords) latest_.pop_front();
  changed_.notify_all();
}

std::vector<RequestRecord> RequestLog::records(const std::string& pathSuffix) const {
  const std::lock_guard lock(mutex_);
  std::vector<RequestRecord> result;
  for (const auto& record : latest_) {
    if (record.path.ends_with(pathSuffix)) result.push_back(record);
  }
  return result;
}

std::int64_t RequestLog::countLocked(const std::string& pathSuffix) const {
  std::int64_t sum = 0;
  for (const auto& [path, number] : countByPath_) {
    if (path.ends_with(pathSuffix)) sum += number;
  }
  return sum;
}

std::int64_t RequestLog::count(const std::string& pathSuffix) const {
  const std::lock_guard lock(mutex_);
  return countLocked(pathSuffix);
}

bool RequestLog::waitFor(const std::string& pathSuffix, std::int64_t count,
                         std::chrono::milliseconds timeout) const {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, timeout, [&] { return countLocked(pathSuffix) >= count; });
}

}  // namespace orrelo::devservice

#pragma once

#include <orrelo/Platform.h>
#include <orrelo/UserDefaults.h>
#include <orrelo/platform/Clock.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace orrelo {

class SqliteUserDefaults;

/// Suites in SQLite files, one file per suite. Opening a suite does not access its file: the first read loads
/// it, and the first write creates it if missing.
class SqliteUserDefaultsFactory final : public UserDefaultsFactory {
 public:
  SqliteUserDefaultsFactory(std::shared_ptr<Directories> directories, std::shared_ptr<Clock> clock,
                            std::string mainBundleIdentifier);

  std::shared_ptr<UserDefaults> standard() override;
  std::shared_ptr<UserDefaults> suite(std::string_view name) override;
  void refresh() override;

 private:
  std::shared_ptr<SqliteUserDefaults> open(const std::string& fileName);

  std::shared_ptr<Directories> directories_;
  std::shared_ptr<Clock> clock_;
  std::string mainBundleIdentifier_;
  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<SqliteUserDefaults>> suites_;
};

}  // namespace orrelo

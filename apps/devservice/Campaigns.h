#pragma once

#include "AttendanceBook.h"
#include "Reply.h"
#include "Scenario.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace orrelo::devservice {

/// Plays the scenario's campaigns: what a user sees of them, and what taking part changes.
class Campaigns {
 public:
  Campaigns(AttendanceBook& book, const Scenario& scenario);

  /// On whose behalf, and by which address the service was asked.
  struct Asker {
    std::string appKey;
    /// Of the header "buid".
    std::string userId;
    /// "https://localhost:9443"; stands for "{{service}}" in the files.
    std::string serviceUrl;
  };

  /// All of them, in the order of their files' names.
  Reply list(const Asker& asker) const;
  Reply one(const Asker& asker, const std::string& id) const;
  /// The page that now applies, for the path that an attendance page gives as "button_url".
  Reply checkIn(const Asker& asker, const std::string& id);

 private:
  nlohmann::json load(const Asker& asker, const std::string& id) const;
  nlohmann::json render(nlohmann::json file, const Asker& asker) const;

  AttendanceBook& attendances;
  const Scenario& scenario;
};

}  // namespace orrelo::devservice

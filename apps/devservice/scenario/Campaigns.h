#pragma once

#include "http/Reply.h"
#include "scenario/CampaignFile.h"
#include "scenario/Scenario.h"
#include "store/ParticipationBook.h"

#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// Serves the scenario's campaigns in the state that each user has reached by taking part.
class Campaigns {
 public:
  Campaigns(ParticipationBook& participations, const Scenario& scenario);

  /// The user that a request is made for, and the address that it was sent to.
  struct Caller {
    std::string appKey;
    /// The value of the header "buid".
    std::string userId;
    /// The address, such as "https://localhost:9443", that replaces "{{service}}" in the files.
    std::string serviceUrl;
  };

  /// All campaigns of the app, ordered by file name.
  Reply list(const Caller& caller) const;
  Reply one(const Caller& caller, const std::string& id) const;
  /// Carries the action out if the user's state allows it. Either way the reply is the page in the resulting
  /// state, so that a user who presses twice wins once.
  Reply participate(const Caller& caller, const std::string& id, const std::string& action);

 private:
  /// Absent if there is no such file.
  std::optional<CampaignFile> load(const Caller& caller, const std::string& id) const;
  std::string stateOf(const CampaignFile& file, const ParticipationBook::Key& user) const;
  CampaignFile::Days daysOf(const ParticipationBook::Key& user) const;
  nlohmann::json render(const CampaignFile& file, const ParticipationBook::Key& user) const;

  ParticipationBook& participations_;
  const Scenario& scenario_;
  /// Held from reading a user's state until changing it.
  std::mutex mutex_;
};

}  // namespace orrelo::devservice

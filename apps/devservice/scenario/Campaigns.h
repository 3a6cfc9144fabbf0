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

/// Plays the scenario's campaigns: what a user sees of them, and what taking part changes.
class Campaigns {
 public:
  Campaigns(ParticipationBook& book, const Scenario& scenario);

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
  /// Carries the action out where the user's state allows it. The reply is the page that now applies, either
  /// way: who presses twice wins once.
  Reply participate(const Asker& asker, const std::string& id, const std::string& action);

 private:
  /// Absent where there is no such file.
  std::optional<CampaignFile> load(const Asker& asker, const std::string& id) const;
  std::string stateOf(const CampaignFile& file, const ParticipationBook::Key& user) const;
  CampaignFile::Days daysOf(const ParticipationBook::Key& user) const;
  nlohmann::json render(const CampaignFile& file, const ParticipationBook::Key& user) const;

  ParticipationBook& participations;
  const Scenario& scenario;
  /// From the look at a user's state to its change.
  std::mutex participating;
};

}  // namespace orrelo::devservice

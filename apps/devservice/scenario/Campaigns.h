#pragma once

#include "http/Reply.h"
#include "scenario/Caller.h"
#include "scenario/CampaignFile.h"
#include "scenario/Scenario.h"
#include "scenario/Wallets.h"
#include "store/ParticipationBook.h"
#include "store/ReferralBook.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// Serves the scenario's campaigns in the state that each user has reached by taking part.
class Campaigns {
 public:
  Campaigns(UserDatabase& users, Wallets& wallets, ReferralBook& referrals, const Scenario& scenario);

  /// All campaigns of the app, ordered by file name.
  Reply list(const Caller& caller) const;
  Reply one(const Caller& caller, const std::string& id) const;
  /// Carries the action out, and gives or takes what it gives or takes, if the user's state and wallet allow
  /// it. Either way the reply is the page in the resulting state, so that a user who presses twice wins once.
  /// If the wallet does not allow it, the header "Orrelo-Note" has the reason.
  Reply participate(const Caller& caller, const std::string& id, const std::string& action);

  /// The campaign's file; absent if there is none. Throws std::runtime_error if it is wrong.
  std::optional<CampaignFile> load(const Caller& caller, const std::string& id) const;
  /// Leads the user to a state within a larger change.
  void enter(const UserDatabase::Change& change, const Caller& caller, const std::string& id,
             const std::string& action, const std::string& state);

 private:
  std::string stateOf(const CampaignFile& file, const ParticipationBook::Key& user) const;
  CampaignFile::User userOf(const CampaignFile& file, const ParticipationBook::Key& key) const;
  nlohmann::json render(const CampaignFile& file, const ParticipationBook::Key& user) const;

  UserDatabase& users_;
  ParticipationBook participations_;
  Wallets& wallets_;
  ReferralBook& referrals_;
  const Scenario& scenario_;
};

}  // namespace orrelo::devservice

#pragma once

#include "store/WalletRecords.h"

#include <cstdint>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// A campaign file of the scenario: the campaign, the states that a user can be in, and the actions that lead
/// from one state to another.
class CampaignFile {
 public:
  struct Action {
    std::string from;
    std::string to;
    /// Changes that the reply's page has in addition to those of the new state.
    nlohmann::json reply;
    /// What the action gives the user or takes.
    std::optional<WalletChange> gives;
  };
  /// The reward of a user who redeems a friend's invitation code.
  struct Referral {
    /// The state that the user enters.
    std::string to;
    WalletChange gives;
    /// The reward of the user who owns the code.
    WalletChange givesInviter;
    /// The message to the user, in the form of the reply.
    nlohmann::json rewardMessage;
  };
  /// The values of the campaign's placeholders for its user.
  struct User {
    /// The days on which the user carried out an action.
    std::function<std::vector<std::string>(const std::string& action)> days;
    /// The user's own invitation code, and the number of friends who have redeemed it.
    std::string code = {};
    std::int64_t friends = 0;
  };

  /// Checks the whole file. Throws std::runtime_error that says what is wrong in it.
  CampaignFile(const std::string& name, const std::string& text);

  /// Null if there is no such action.
  const Action* action(const std::string& name) const;
  /// Null if there are no codes to redeem.
  const Referral* referral() const { return referral_ ? &*referral_ : nullptr; }
  bool hasState(const std::string& state) const { return states_.contains(state); }
  /// The state of a user who has not taken part; empty in a file without states.
  const std::string& firstState() const { return first_; }
  /// Users return to the first state each day.
  bool resetsDaily() const { return daily_; }
  /// The campaign for a user in this state, with the changes of `reply` made to its page as well.
  nlohmann::json campaign(const std::string& state, const User& user,
                          const nlohmann::json& reply = nlohmann::json::object()) const;

 private:
  void readStates(const nlohmann::json& file);
  void readActions(const nlohmann::json& file);
  void readReferral(const nlohmann::json& file);
  WalletChange changeFrom(const nlohmann::json& step, const char* key, const std::string& of) const;
  std::string stateNamedBy(const nlohmann::json& object, const char* key, const std::string& of) const;
  void change(nlohmann::json& page, const nlohmann::json& changes) const;
  void fillInUser(nlohmann::json& value, const User& user) const;
  void fillInUser(std::string& text, const User& user) const;
  [[noreturn]] void refuse(const std::string& reason) const;

  const std::string name_;
  nlohmann::json original_;
  std::map<std::string, nlohmann::json> states_;
  std::map<std::string, Action> actions_;
  std::optional<Referral> referral_;
  std::string first_;
  bool daily_ = false;
};

}  // namespace orrelo::devservice

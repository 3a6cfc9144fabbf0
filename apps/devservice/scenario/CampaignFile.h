#pragma once

#include "store/WalletRecords.h"

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
  /// The days on which the user carried out an action.
  using Days = std::function<std::vector<std::string>(const std::string& action)>;

  /// Checks the whole file. Throws std::runtime_error that says what is wrong in it.
  CampaignFile(const std::string& name, const std::string& text);

  /// Null if there is no such action.
  const Action* action(const std::string& name) const;
  bool hasState(const std::string& state) const { return states_.contains(state); }
  /// The state of a user who has not taken part; empty in a file without states.
  const std::string& firstState() const { return first_; }
  /// Users return to the first state each day.
  bool resetsDaily() const { return daily_; }
  /// The campaign for a user in this state, with the changes of `reply` made to its page as well.
  nlohmann::json campaign(const std::string& state, const Days& days,
                          const nlohmann::json& reply = nlohmann::json::object()) const;

 private:
  void readStates(const nlohmann::json& file);
  void readActions(const nlohmann::json& file);
  std::optional<WalletChange> givenBy(const nlohmann::json& step, const std::string& of) const;
  std::string stateNamedBy(const nlohmann::json& object, const char* key, const std::string& of) const;
  void change(nlohmann::json& page, const nlohmann::json& changes) const;
  void fillInDays(nlohmann::json& value, const Days& days) const;
  [[noreturn]] void refuse(const std::string& reason) const;

  const std::string name_;
  nlohmann::json original_;
  std::map<std::string, nlohmann::json> states_;
  std::map<std::string, Action> actions_;
  std::string first_;
  bool daily_ = false;
};

}  // namespace orrelo::devservice

#pragma once

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// A campaign's file of the scenario: the campaign, the states that a user can be in, and the actions that
/// lead from one to another.
class CampaignFile {
 public:
  struct Action {
    std::string from;
    std::string to;
    /// What the page of the reply has beyond that of the new state.
    nlohmann::json reply;
  };
  /// The days on which the user carried out an action.
  using Days = std::function<std::vector<std::string>(const std::string& action)>;

  /// Throws std::runtime_error that says what is wrong in the text, whichever state it is in.
  CampaignFile(const std::string& name, const std::string& text);

  /// Null where there is no such action.
  const Action* action(const std::string& name) const;
  bool hasState(const std::string& state) const { return states.contains(state); }
  /// Empty in a file without states.
  const std::string& firstState() const { return first; }
  /// Each day begins in the first state.
  bool startsAnewDaily() const { return daily; }
  /// What a user in this state gets.
  nlohmann::json campaign(const std::string& state, const Days& days,
                          const nlohmann::json& reply = nlohmann::json::object()) const;

 private:
  void readStates(const nlohmann::json& file);
  void readActions(const nlohmann::json& file);
  std::string stateNamedBy(const nlohmann::json& object, const char* key, const std::string& of) const;
  void change(nlohmann::json& page, const nlohmann::json& changes) const;
  void fillInDays(nlohmann::json& value, const Days& days) const;
  [[noreturn]] void refuse(const std::string& reason) const;

  const std::string name;
  nlohmann::json original;
  std::map<std::string, nlohmann::json> states;
  std::map<std::string, Action> actions;
  std::string first;
  bool daily = false;
};

}  // namespace orrelo::devservice

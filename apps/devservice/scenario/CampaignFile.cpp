#include "scenario/CampaignFile.h"

#include "JsonText.h"
#include "scenario/WalletJson.h"

#include <stdexcept>
#include <string_view>
#include <utility>
#include <variant>

namespace orrelo::devservice {

namespace {

using nlohmann::json;

/// The action in the placeholder "{{days of ACTION}}"; empty if the element is no such placeholder.
std::string actionOfDays(const json& element) {
  constexpr std::string_view opening = "{{days of ";
  constexpr std::string_view closing = "}}";
  if (!element.is_string()) return {};
  const std::string_view text = element.get_ref<const std::string&>();
  if (!text.starts_with(opening) || !text.ends_with(closing)) return {};
  return std::string(text.substr(opening.size(), text.size() - opening.size() - closing.size()));
}

}  // namespace

CampaignFile::CampaignFile(const std::string& name, const std::string& text) : name_(name) {
  const auto file = json::parse(text, nullptr, false);
  if (!file.is_object() || !file.value("campaign", json()).is_object()) {
    throw std::runtime_error("campaigns/" + name_ + ".json is no object with a \"campaign\"");
  }
  original_ = file["campaign"];
  readStates(file);
  readActions(file);
  // Builds the campaign in every state and after every action, to report wrong paths and placeholders now.
  const auto noDays = [](const std::string&) { return std::vector<std::string>(); };
  campaign(first_, noDays);
  for (const auto& [state, changes] : states_) campaign(state, noDays);
  for (const auto& [action, step] : actions_) campaign(step.to, noDays, step.reply);
}

const CampaignFile::Action* CampaignFile::action(const std::string& action) const {
  const auto found = actions_.find(action);
  return found == actions_.end() ? nullptr : &found->second;
}

json CampaignFile::campaign(const std::string& state, const Days& days, const json& reply) const {
  auto result = original_;
  const auto changes = states_.find(state);
  if (changes == states_.end()) return result;
  auto& page = result["page"];
  change(page, changes->second);
  change(page, reply);
  fillInDays(page, days);
  return result;
}

void CampaignFile::readStates(const json& file) {
  const auto all = file.value("states", json::object());
  if (!all.is_object()) refuse("\"states\" is no object");
  if (all.empty()) return;
  if (!original_.value("page", json()).is_object()) refuse("there are states, but no page");
  for (const auto& [state, changes] : all.items()) states_.emplace(state, changes);
  first_ = stateNamedBy(file, "first_state", "the file");
  const auto isDaily = file.value("daily", json(false));
  if (!isDaily.is_boolean()) refuse("\"daily\" is neither true nor false");
  daily_ = isDaily.get<bool>();
}

void CampaignFile::readActions(const json& file) {
  const auto all = file.value("actions", json::object());
  if (!all.is_object()) refuse("\"actions\" is no object");
  for (const auto& [action, step] : all.items()) {
    if (!step.is_object()) refuse("the action \"" + action + "\" is no object");
    const auto of = "the action \"" + action + "\"";
    actions_.emplace(action, Action{stateNamedBy(step, "from", of), stateNamedBy(step, "to", of),
                                    step.value("reply", json::object()), givenBy(step, of)});
  }
}

std::optional<WalletChange> CampaignFile::givenBy(const json& step, const std::string& of) const {
  const auto gives = step.find("gives");
  if (gives == step.end()) return std::nullopt;
  auto change = walletChangeFromJson(*gives);
  if (const auto* problem = std::get_if<std::string>(&change)) refuse("\"gives\" of " + of + ": " + *problem);
  return std::get<WalletChange>(std::move(change));
}

std::string CampaignFile::stateNamedBy(const json& object, const char* key, const std::string& of) const {
  const auto state = stringAt(object, key);
  if (!state || !hasState(*state)) refuse("\"" + std::string(key) + "\" of " + of + " names no state");
  return *state;
}

void CampaignFile::change(json& page, const json& changes) const {
  if (!changes.is_object()) refuse("changes of a page are no object");
  for (const auto& [path, value] : changes.items()) {
    try {
      const json::json_pointer place(path);
      auto& parent = page.at(place.parent_pointer());
      if (parent.is_object()) {
        parent[place.back()] = value;
      } else {
        page.at(place) = value;
      }
    } catch (const json::exception&) {
      refuse("\"" + path + "\" is no place in the page");
    }
  }
}

void CampaignFile::fillInDays(json& value, const Days& days) const {
  if (value.is_object()) {
    for (auto& member : value) fillInDays(member, days);
  } else if (value.is_array()) {
    auto filled = json::array();
    for (auto& element : value) {
      fillInDays(element, days);
      const auto action = actionOfDays(element);
      if (action.empty()) {
        filled.push_back(std::move(element));
        continue;
      }
      if (!actions_.contains(action)) refuse("there is no action \"" + action + "\" to have days");
      for (auto& day : days(action)) filled.push_back(std::move(day));
    }
    value = std::move(filled);
  }
}

void CampaignFile::refuse(const std::string& reason) const {
  throw std::runtime_error("campaigns/" + name_ + ".json: " + reason);
}

}  // namespace orrelo::devservice

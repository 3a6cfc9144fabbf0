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

constexpr std::string_view codePlaceholder = "{{code}}";
constexpr std::string_view friendsPlaceholder = "{{friends}}";

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
  readReferral(file);
  // Builds the campaign in every state and after every action, to report wrong paths and placeholders now.
  const User nobody{.days = [](const std::string&) { return std::vector<std::string>(); }};
  campaign(first_, nobody);
  for (const auto& [state, changes] : states_) campaign(state, nobody);
  for (const auto& [action, step] : actions_) campaign(step.to, nobody, step.reply);
}

const CampaignFile::Action* CampaignFile::action(const std::string& action) const {
  const auto found = actions_.find(action);
  return found == actions_.end() ? nullptr : &found->second;
}

json CampaignFile::campaign(const std::string& state, const User& user, const json& reply) const {
  auto result = original_;
  const auto page = result.find("page");
  if (page == result.end()) return result;
  const auto changes = states_.find(state);
  if (changes != states_.end()) {
    change(*page, changes->second);
    change(*page, reply);
  }
  fillInUser(*page, user);
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
    actions_.emplace(
        action, Action{stateNamedBy(step, "from", of), stateNamedBy(step, "to", of),
                       step.value("reply", json::object()),
                       step.contains("gives") ? std::optional(changeFrom(step, "gives", of)) : std::nullopt});
  }
}

void CampaignFile::readReferral(const json& file) {
  const auto found = file.find("referral");
  if (found == file.end()) return;
  if (!found->is_object()) refuse("\"referral\" is no object");
  const std::string of = "\"referral\"";
  const auto message = found->value("reward_message", json());
  for (const auto* key : {"title", "body", "button_text"}) {
    if (!message.is_object() || !stringAt(message, key)) {
      refuse("\"reward_message\" of " + of + " needs a \"" + key + "\"");
    }
  }
  referral_ = Referral{stateNamedBy(*found, "to", of), changeFrom(*found, "gives", of),
                       changeFrom(*found, "gives_inviter", of), message};
}

WalletChange CampaignFile::changeFrom(const json& step, const char* key, const std::string& of) const {
  auto change = walletChangeFromJson(step.value(key, json()));
  if (const auto* problem = std::get_if<std::string>(&change)) {
    refuse("\"" + std::string(key) + "\" of " + of + ": " + *problem);
  }
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

void CampaignFile::fillInUser(json& value, const User& user) const {
  if (value.is_string()) {
    // Clients need a number where the placeholder stands alone.
    const bool isNumber = value == friendsPlaceholder;
    fillInUser(value.get_ref<std::string&>(), user);
    if (isNumber) value = user.friends;
  } else if (value.is_object()) {
    for (auto& member : value) fillInUser(member, user);
  } else if (value.is_array()) {
    auto filled = json::array();
    for (auto& element : value) {
      fillInUser(element, user);
      const auto action = actionOfDays(element);
      if (action.empty()) {
        filled.push_back(std::move(element));
        continue;
      }
      if (!actions_.contains(action)) refuse("there is no action \"" + action + "\" to have days");
      for (auto& day : user.days(action)) filled.push_back(std::move(day));
    }
    value = std::move(filled);
  }
}

void CampaignFile::fillInUser(std::string& text, const User& user) const {
  for (const auto& [placeholder, value] :
       {std::pair(codePlaceholder, user.code), std::pair(friendsPlaceholder, std::to_string(user.friends))}) {
    for (auto at = text.find(placeholder); at != std::string::npos; at = text.find(placeholder, at)) {
      if (!referral_) refuse("\"" + std::string(placeholder) + "\" needs a \"referral\"");
      text.replace(at, placeholder.size(), value);
      at += value.size();
    }
  }
}

void CampaignFile::refuse(const std::string& reason) const {
  throw std::runtime_error("campaigns/" + name_ + ".json: " + reason);
}

}  // namespace orrelo::devservice

#include "scenario/Campaigns.h"

#include "JsonText.h"

#include <array>
#include <chrono>
#include <ctime>
#include <nlohmann/json.hpp>

namespace orrelo::devservice {

namespace {

using nlohmann::json;

/// The date `ago` days before the scenario's current day, in this machine's time zone.
std::string day(const Scenario& scenario, int ago = 0) {
  const auto now = std::chrono::system_clock::to_time_t(scenario.now());
  std::tm local{};
  localtime_r(&now, &local);
  local.tm_mday -= ago;
  local.tm_isdst = -1;
  std::mktime(&local);
  std::array<char, 16> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
}

void replaceAll(std::string& text, std::string_view name, std::string_view value) {
  for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at + value.size())) {
    text.replace(at, name.size(), value);
  }
}

void fillIn(std::string& text, const std::string& serviceUrl, const Scenario& scenario) {
  constexpr int longestMonth = 31;
  replaceAll(text, "{{service}}", serviceUrl);
  replaceAll(text, "{{today}}", day(scenario));
  replaceAll(text, "{{month}}", day(scenario).substr(0, 7));
  for (int ago = 1; ago <= longestMonth; ++ago) {
    replaceAll(text, "{{today-" + std::to_string(ago) + "}}", day(scenario, ago));
  }
}

}  // namespace

Campaigns::Campaigns(ParticipationBook& participations, const Scenario& scenario)
    : participations_(participations), scenario_(scenario) {}

Reply Campaigns::list(const Caller& caller) const {
  auto all = json::array();
  for (const auto& id : scenario_.campaigns(caller.appKey)) {
    if (const auto file = load(caller, id)) all.push_back(render(*file, {caller.appKey, caller.userId, id}));
  }
  return jsonReply(200, all);
}

Reply Campaigns::one(const Caller& caller, const std::string& id) const {
  const auto file = load(caller, id);
  if (!file) return errorReply(404, "the scenario has no such campaign");
  return jsonReply(200, render(*file, {caller.appKey, caller.userId, id}));
}

Reply Campaigns::participate(const Caller& caller, const std::string& id, const std::string& action) {
  const auto file = load(caller, id);
  const auto* const step = file ? file->action(action) : nullptr;
  if (step == nullptr) return errorReply(404, "the scenario has no such campaign and action");
  const ParticipationBook::Key user{caller.appKey, caller.userId, id};
  const std::lock_guard lock(mutex_);
  if (stateOf(*file, user) != step->from) return jsonReply(200, render(*file, user)["page"]);
  participations_.add(user, {action, step->to, day(scenario_)});
  return jsonReply(200, file->campaign(step->to, daysOf(user), step->reply)["page"]);
}

std::optional<CampaignFile> Campaigns::load(const Caller& caller, const std::string& id) const {
  auto text = scenario_.campaign(caller.appKey, id);
  if (!text) return std::nullopt;
  fillIn(*text, caller.serviceUrl, scenario_);
  return CampaignFile(id, *text);
}

std::string Campaigns::stateOf(const CampaignFile& file, const ParticipationBook::Key& user) const {
  const auto last = participations_.last(user);
  // The file may have been edited since this state was stored.
  if (!last || !file.hasState(last->state)) return file.firstState();
  return file.resetsDaily() && last->day != day(scenario_) ? file.firstState() : last->state;
}

CampaignFile::Days Campaigns::daysOf(const ParticipationBook::Key& user) const {
  return [this, user](const std::string& action) { return participations_.days(user, action); };
}

json Campaigns::render(const CampaignFile& file, const ParticipationBook::Key& user) const {
  return file.campaign(stateOf(file, user), daysOf(user));
}

}  // namespace orrelo::devservice

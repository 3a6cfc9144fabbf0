#include "scenario/Campaigns.h"

#include "JsonText.h"
#include "scenario/Placeholders.h"

#include <nlohmann/json.hpp>

namespace orrelo::devservice {

using nlohmann::json;

Campaigns::Campaigns(UserDatabase& users, Wallets& wallets, ReferralBook& referrals, const Scenario& scenario)
    : users_(users), participations_(users), wallets_(wallets), referrals_(referrals), scenario_(scenario) {}

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
  UserDatabase::Change change(users_);
  if (stateOf(*file, user) != step->from) return jsonReply(200, render(*file, user)["page"]);
  if (const auto problem = step->gives ? wallets_.apply(change, caller, *step->gives) : std::nullopt) {
    auto reply = jsonReply(200, render(*file, user)["page"]);
    reply.headers.emplace_back("Orrelo-Note", *problem);
    return reply;
  }
  enter(change, caller, id, action, step->to);
  change.commit();
  return jsonReply(200, file->campaign(step->to, userOf(*file, user), step->reply)["page"]);
}

void Campaigns::enter(const UserDatabase::Change& change, const Caller& caller, const std::string& id,
                      const std::string& action, const std::string& state) {
  participations_.add(change, {caller.appKey, caller.userId, id}, {action, state, dayOf(scenario_)});
}

std::optional<CampaignFile> Campaigns::load(const Caller& caller, const std::string& id) const {
  const auto text = scenario_.campaign(caller.appKey, id);
  if (!text) return std::nullopt;
  return CampaignFile(id, fillIn(*text, caller, scenario_));
}

std::string Campaigns::stateOf(const CampaignFile& file, const ParticipationBook::Key& user) const {
  const auto last = participations_.last(user);
  // The file may have been edited since this state was stored.
  if (!last || !file.hasState(last->state)) return file.firstState();
  return file.resetsDaily() && last->day != dayOf(scenario_) ? file.firstState() : last->state;
}

CampaignFile::User Campaigns::userOf(const CampaignFile& file, const ParticipationBook::Key& key) const {
  CampaignFile::User user{
      .days = [this, key](const std::string& action) { return participations_.days(key, action); }};
  // A request without a user id has no code.
  if (file.referral() != nullptr && !key.userId.empty()) {
    user.code = referrals_.codeOf({key.appKey, key.userId});
    user.friends = referrals_.friendsOf({key.appKey, key.userId}, key.campaignId);
  }
  return user;
}

json Campaigns::render(const CampaignFile& file, const ParticipationBook::Key& user) const {
  return file.campaign(stateOf(file, user), userOf(file, user));
}

}  // namespace orrelo::devservice

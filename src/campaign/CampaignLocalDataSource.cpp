#include "campaign/CampaignLocalDataSource.h"

#include "base/Error.h"
#include "base/Json.h"
#include "base/JsonWriter.h"
#include "base/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {
namespace {

constexpr auto storedKey = "orrelo_live_campaign_state_array";

std::vector<CampaignState> decodeStates(std::string_view json) {
  JsonParser parser;
  std::vector<CampaignState> states;
  parser.parse(json).arrayValue().forEach([&](const JsonValue& row) {
    const auto state = row.objectValue();
    states.push_back({state.text("campaignId"), state.boolean("popUpDialogIsShown")});
  });
  return states;
}

}  // namespace

std::vector<CampaignState> CampaignLocalDataSource::load() const {
  const auto stored = userDefaults_->data(storedKey);
  if (!stored) return {};
  try {
    return decodeStates({reinterpret_cast<const char*>(stored->data()), stored->size()});
  } catch (const Error&) {
    return {};
  }
}

void CampaignLocalDataSource::save(const CampaignState& state) const {
  if (!utf8::isValid(state.campaignId)) return;
  auto states = load();
  std::erase_if(states, [&](const auto& stored) { return stored.campaignId == state.campaignId; });
  states.push_back(state);
  store(std::move(states));
}

void CampaignLocalDataSource::prune(const std::vector<Campaign>& listed) const {
  std::set<std::string_view> wanted;
  for (const auto& campaign : listed) wanted.insert(campaign.id);
  auto states = load();
  std::erase_if(states, [&](const auto& stored) { return !wanted.contains(stored.campaignId); });
  store(std::move(states));
}

void CampaignLocalDataSource::store(std::vector<CampaignState> states) const {
  // Only the first state of each campaign is kept.
  std::set<std::string> known;
  std::erase_if(states, [&](const auto& state) { return !known.insert(state.campaignId).second; });
  JsonWriter json;
  json.beginArray();
  for (const auto& state : states) {
    json.beginObject();
    json.field("campaignId", state.campaignId);
    json.key("popUpDialogIsShown").boolean(state.popUpDialogIsShown);
    json.endObject();
  }
  json.endArray();
  const auto& text = json.result();
  const auto* const bytes = reinterpret_cast<const std::byte*>(text.data());
  userDefaults_->set(storedKey, DefaultsData(bytes, bytes + text.size()));
}

}  // namespace orrelo

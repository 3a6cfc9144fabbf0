#include "campaign/CampaignDataSources.h"

#include "base/Json.h"
#include "base/JsonWriter.h"
#include "base/Utf8.h"
#include "reactive/Observable.h"

#include <algorithm>
#include <set>
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

HTTPHeaders withUser(HTTPHeaders headers, const std::string& userId) {
  headers["buid"] = userId;
  return headers;
}

reactive::Observable<Campaign> CampaignRemoteDataSource::fetch(const std::string& campaignId,
                                                               const std::string& userId) const {
  return get("/campaigns/" + campaignId, userId).map([mapper = mapper_](const HTTPReply& reply) {
    return mapper.map(CampaignDTO::decode(reply.data));
  });
}

reactive::Observable<std::vector<Campaign>> CampaignRemoteDataSource::fetchAll(
    const std::string& userId) const {
  return get("/campaigns", userId).map([mapper = mapper_](const HTTPReply& reply) {
    std::vector<Campaign> campaigns;
    CampaignDTO::decodeList(reply.data,
                            [&](CampaignDTO&& dto) { campaigns.push_back(mapper.map(std::move(dto))); });
    return campaigns;
  });
}

reactive::Observable<HTTPReply> CampaignRemoteDataSource::get(const std::string& path,
                                                              const std::string& userId) const {
  URLRequestBuilder builder(URLRequestBuilder::Method::get);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.path = path;
  builder.headers = withUser(networkConfig_.headers, userId);
  return send(builder, *httpClient_).observeOn(scheduler_);
}

}  // namespace orrelo

#include "scenario/MessagesFile.h"

#include "JsonText.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace orrelo::devservice {

using nlohmann::json;

namespace {

constexpr std::size_t mostMessages = 100;

[[noreturn]] void refuse(const std::string& reason) {
  throw std::runtime_error("messages.json: " + reason);
}

std::string textOf(const json& object, const char* key, const std::string& what) {
  const auto text = stringAt(object, key);
  if (!text || text->empty()) refuse("\"" + std::string(key) + "\" is missing in " + what);
  return *text;
}

}  // namespace

json messagesFromText(const std::string& text, const std::vector<std::string>& campaigns) {
  const auto file = json::parse(text, nullptr, false);
  if (!file.is_object()) refuse("the file is no object");
  const auto items = file.find("items");
  if (items == file.end() || !items->is_array() || items->size() > mostMessages) {
    refuse("\"items\" must be a list of at most " + std::to_string(mostMessages));
  }
  auto reply = noMessages();
  reply["type"] = textOf(file, "type", "the file");
  for (const auto& item : *items) {
    const auto what = "item " + std::to_string(reply["items"].size());
    if (!item.is_object()) refuse(what + " is no object");
    const auto campaign = textOf(item, "campaign_id", what);
    if (std::ranges::find(campaigns, campaign) == campaigns.end()) {
      refuse("there is no campaign \"" + campaign + "\" for " + what + " to lead to");
    }
    reply["items"].push_back({{"campaign_id", campaign}, {"image_url", textOf(item, "image_url", what)}});
  }
  return reply;
}

json noMessages() {
  return {{"type", "banner"}, {"items", json::array()}};
}

}  // namespace orrelo::devservice

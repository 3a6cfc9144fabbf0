#include "Campaigns.h"

#include "JsonText.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

namespace orrelo::devservice {

namespace {

using nlohmann::json;

/// By the clock and the time zone of this machine.
std::string today() {
  const auto now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 16> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
}

void replaceAll(std::string& text, std::string_view name, std::string_view value) {
  for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at + value.size())) {
    text.replace(at, name.size(), value);
  }
}

bool isAttendance(const json& campaign) {
  const auto page = campaign.find("page");
  if (page == campaign.end() || !page->is_object() || !page->value("page_detail", json()).is_object()) {
    return false;
  }
  return stringAt(*page, "page_type").value_or("").find("attendance") != std::string::npos;
}

}  // namespace

Campaigns::Campaigns(AttendanceBook& book, const Scenario& theScenario)
    : attendances(book), scenario(theScenario) {}

Reply Campaigns::list(const Asker& asker) const {
  auto all = json::array();
  for (const auto& id : scenario.campaigns(asker.appKey)) {
    all.push_back(render(load(asker, id), asker)["campaign"]);
  }
  return jsonReply(200, all);
}

Reply Campaigns::one(const Asker& asker, const std::string& id) const {
  const auto file = load(asker, id);
  if (file.is_null()) return errorReply(404, "the scenario has no such campaign");
  return jsonReply(200, render(file, asker)["campaign"]);
}

Reply Campaigns::checkIn(const Asker& asker, const std::string& id) {
  auto file = load(asker, id);
  if (file.is_null() || !isAttendance(file["campaign"])) {
    return errorReply(404, "the scenario has no such attendance campaign");
  }
  const bool isNew = attendances.checkIn({asker.appKey, asker.userId, id}, today());
  file = render(std::move(file), asker);
  auto& page = file["campaign"]["page"];
  if (isNew && file.contains("on_check_in")) page["page_detail"].update(file["on_check_in"]);
  return jsonReply(200, page);
}

json Campaigns::load(const Asker& asker, const std::string& id) const {
  auto text = scenario.campaign(asker.appKey, id);
  if (!text) return nullptr;
  replaceAll(*text, "{{service}}", asker.serviceUrl);
  replaceAll(*text, "{{today}}", today());
  replaceAll(*text, "{{month}}", today().substr(0, 7));
  auto file = json::parse(*text, nullptr, false);
  if (!file.is_object() || !file.value("campaign", json()).is_object()) {
    throw std::runtime_error("campaigns/" + id + ".json is no object with a \"campaign\"");
  }
  return file;
}

json Campaigns::render(json file, const Asker& asker) const {
  auto& campaign = file["campaign"];
  if (!isAttendance(campaign)) return file;
  const auto id = stringAt(campaign, "id").value_or("");
  auto& detail = campaign["page"]["page_detail"];
  auto& attended = detail["attended_date"];
  if (!attended.is_array()) return file;  // broken on purpose
  for (const auto& day : attendances.days({asker.appKey, asker.userId, id})) attended.push_back(day);
  const bool isDone = std::find(attended.begin(), attended.end(), json(today())) != attended.end();
  if (isDone && file.contains("when_attended")) detail.update(file["when_attended"]);
  return file;
}

}  // namespace orrelo::devservice

#include "CampaignReplies.h"

#include "base/Error.h"

#include <fstream>
#include <gtest/gtest.h>

namespace orrelo::test {

std::string storedReply(const std::string& name) {
  std::ifstream file(std::string(ORRELO_TEST_DATA) + "/" + name);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

Json attendanceJson() {
  return Json::parse(storedReply("list.json"))[0];
}

Json resultJson() {
  return Json::parse(storedReply("list.json"))[1];
}

Json unknownJson(const std::string& id) {
  return {{"id", id},
          {"label", "새로운"},
          {"name", "새 캠페인"},
          {"icon", "i"},
          {"page", {{"page_type", "hologram"}, {"page_id", "p"}}}};
}

Campaign mapped(const Json& json) {
  return CampaignMapper().map(CampaignDTO::decode(json.dump()));
}

std::string described(Campaign::CampaignType type) {
  const Campaign campaign{"id", "label", "name", "icon", std::nullopt, std::move(type)};
  try {
    return pageName(campaign) + " " + std::to_string(static_cast<int>(publicType(campaign)));
  } catch (const Error& error) {
    return pageName(campaign) + " " + error.description();
  }
}

std::vector<CampaignDTO> decodedList(const std::string& json) {
  return CampaignDTO::decodeList(json, [](CampaignDTO&& dto) { return std::move(dto); });
}

CalendarDate day(int year, int month, int number) {
  return {year, month, number};
}

}  // namespace orrelo::test

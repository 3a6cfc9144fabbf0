#pragma once

#include "campaign/CampaignMapper.h"
#include "support/Json.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orrelo::test {

/// A reply of the service from the folder of test data.
std::string storedReply(const std::string& name);

Json attendanceJson();
Json resultJson();
Json unknownJson(const std::string& id = "c-new");

Campaign mapped(const Json& json);
/// The page name and the public type, or the error in its place.
std::string described(Campaign::CampaignType type);
std::vector<CampaignDTO> decodedList(const std::string& json);
CalendarDate day(int year, int month, int number);

}  // namespace orrelo::test

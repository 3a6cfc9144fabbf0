// Compares reading a list of campaigns with a bare parse of its bytes.
#include "Benches.h"
#include "Targets.h"
#include "campaign/CampaignMapper.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <fstream>
#include <iterator>
#include <simdjson.h>
#include <stdexcept>

namespace orrelo::bench {
namespace {

std::string readFile(const std::string& path) {
  std::ifstream stream(ORRELO_BENCH_DATA + path);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// A hundred campaigns: check-ins, results, and as many pages of unknown kinds. One check-in is malformed.
std::string listOfCampaigns() {
  const auto sample = readFile("/campaign/list.json");
  simdjson::dom::parser parser;
  const simdjson::dom::array both = parser.parse(sample);
  const std::string checkIn = simdjson::minify(both.at(0));
  const std::string result = simdjson::minify(both.at(1));
  std::string list = "[";
  for (int i = 0; i < 100; ++i) {
    auto campaign = i % 4 < 2 ? checkIn : result;
    if (i % 4 == 1) campaign.replace(campaign.find("\"attendance\""), 12, "\"hologram\"");
    if (i % 8 == 7) campaign.replace(campaign.find("\"lottery_result\""), 16, "\"custom_a_01\"");
    if (i == 0) campaign.replace(campaign.find("first_title"), 11, "other_title");
    list += (i == 0 ? "" : ",") + campaign;
  }
  return list + "]";
}

double secondsOf(const std::function<void()>& run) {
  constexpr int runs = 10;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < runs; ++i) run();
  return secondsSince(start) / runs;
}

std::vector<double> measure() {
  const auto json = listOfCampaigns();
  simdjson::dom::parser parser;
  const auto parse = [&] {
    auto element = parser.parse(json);
    if (element.error() != simdjson::SUCCESS) throw std::runtime_error("the list is no JSON");
    benchmark::DoNotOptimize(element);
  };
  const auto read = [&] {
    const auto campaigns =
        CampaignDTO::decodeList(json, [](CampaignDTO&& dto) { return CampaignMapper().map(std::move(dto)); });
    if (campaigns.size() != 100) throw std::runtime_error("campaigns are missing");
    benchmark::DoNotOptimize(campaigns);
  };
  secondsOf(parse);  // warms the caches
  secondsOf(read);
  // Takes the best of alternating samples, which excludes other load of the machine.
  double reading = secondsOf(read);
  double parsing = secondsOf(parse);
  for (int sample = 0; sample < 200; ++sample) {
    reading = std::min(reading, secondsOf(read));
    parsing = std::min(parsing, secondsOf(parse));
  }
  return {reading / parsing};
}

}  // namespace

void addCampaign() {
  add({{"reading 100 campaigns, against a bare parse", "times", 4}}, &measure);
}

}  // namespace orrelo::bench

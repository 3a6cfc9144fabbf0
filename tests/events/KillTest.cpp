#include "DevService.h"
#include "support/Program.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/EventDatabase.h>

#include <cstdio>
#include <cstdlib>
#include <future>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <sstream>

namespace orrelo::test {
namespace {

/// Lets a host save events without a pause until `count` inserts have completed, and kills it. Returns the
/// ids that it printed, each after its insert.
std::vector<std::string> killAfter(int count, const std::filesystem::path& data,
                                   const devservice::DevService& service) {
  Program host({ORRELO_SAVING_HOST, data.string(), service.baseUrl(), service.certificatePath().string()});
  host.written("\n", count);
  host.end();
  std::istringstream lines(host.output());
  std::vector<std::string> ids;
  for (std::string line; std::getline(lines, line);) {
    if (line.size() == 36) ids.push_back(line);  // the kill may cut the last line short
  }
  return ids;
}

std::vector<EventRow> storedRows(const std::filesystem::path& data) {
  auto platform = Platform::posix({.bundleIdentifier = "com.example.kill",
                                   .shortVersion = "",
                                   .bundleVersion = "",
                                   .dataDirectory = data,
                                   .cacheDirectory = data});
  std::promise<std::vector<EventRow>> rows;
  platform.eventDatabases->open("OLSCoreDataEvent", EventTimeStorage::text)
      ->fetchOldest(1'000'000, [&](auto result) { rows.set_value(std::get<0>(std::move(result))); });
  return rows.get_future().get();
}

TEST(Kill, EverySavedEventIsStoredOrDeliveredUnderItsId) {
  const char* const wanted = std::getenv("ORRELO_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 5;
  const TemporaryFolder folder;
  devservice::DevService service({.dataDirectory = folder.path() / "service"});
  service.start();
  // Lost replies make duplicates.
  service.orderFault(
      {.kind = devservice::Fault::Kind::drop, .pathSuffix = "/event", .count = kills, .carryOut = true});

  std::mt19937 random(20261121);
  std::set<std::string> completed;
  for (int i = 0; i < kills; ++i) {
    const int count = std::uniform_int_distribution(1, 3000)(random);
    for (auto& id : killAfter(count, folder.path() / "device", service)) completed.insert(std::move(id));
  }
  service.stop();

  std::set<std::string> found;
  for (const auto& event : service.events()) {
    found.insert(event.eventId);
    EXPECT_EQ(event.values.at("event_id"), event.eventId);
  }
  const auto delivered = found.size();
  for (const auto& row : storedRows(folder.path() / "device")) found.insert(*row.eventId);
  std::size_t lost = 0;
  for (const auto& id : completed) lost += found.contains(id) ? 0 : 1;
  EXPECT_EQ(lost, 0u) << "of " << completed.size();
  EXPECT_GE(completed.size(), static_cast<std::size_t>(kills));
  std::printf("%d kills: %zu inserts completed, %zu events delivered in %lld deliveries, %zu lost\n", kills,
              completed.size(), delivered, static_cast<long long>(service.deliveryCount()), lost);
}

}  // namespace
}  // namespace orrelo::test

#include "DevService.h"
#include "base/Json.h"
#include "platform/EventDatabase.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Platform.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <future>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orrelo::test {
namespace {

// A host that saves events without a pause and prints each one's id once its insert has completed.
class SavingHost {
 public:
  SavingHost(const std::filesystem::path& data, const devservice::DevService& service) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) std::abort();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::array<std::string, 4> words{ORRELO_SAVING_HOST, data.string(), service.baseUrl(),
                                     service.certificatePath().string()};
    std::array<char*, 5> arguments{words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                                   nullptr};
    EXPECT_EQ(posix_spawn(&pid_, words[0].c_str(), &actions, nullptr, arguments.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    output_ = fdopen(ends[0], "r");
  }

  // Lets it complete so many inserts, kills it, and gives every id that it had printed.
  std::vector<std::string> killAfter(int count) {
    std::vector<std::string> ids;
    std::array<char, 64> line{};
    while (std::fgets(line.data(), line.size(), output_) != nullptr) {
      const std::string text(line.data());
      if (text.size() == 37) ids.push_back(text.substr(0, 36));  // a line may be cut off by the kill
      if (--count == 0) kill(pid_, SIGKILL);
    }
    std::fclose(output_);
    int status = 0;
    waitpid(pid_, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    return ids;
  }

 private:
  pid_t pid_ = -1;
  FILE* output_ = nullptr;
};

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

TEST(Kill, WhatWasSavedIsStoredOrDeliveredUnderItsOwnId) {
  const char* const wanted = std::getenv("ORRELO_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 5;
  const TemporaryFolder folder;
  devservice::DevService service({.dataDirectory = folder.path() / "service"});
  service.start();
  // Replies that get lost make duplicates.
  service.orderFault(
      {.kind = devservice::Fault::Kind::drop, .pathSuffix = "/event", .count = kills, .carryOut = true});

  std::mt19937 random(20261121);
  std::set<std::string> completed;
  for (int i = 0; i < kills; ++i) {
    const int count = std::uniform_int_distribution(1, 3000)(random);
    for (auto& id : SavingHost(folder.path() / "device", service).killAfter(count))
      completed.insert(std::move(id));
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

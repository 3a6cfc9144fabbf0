#include "Session.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <set>
#include <stdexcept>
#include <vector>

namespace orrelo::console {
namespace {

using devservice::ReceivedEvent;
using std::chrono::seconds;

// The kit sends one stored event every 10 seconds while nothing else happens.
constexpr seconds deliveryTimeout{60};

constexpr auto token = "a push token of minji's device";

// All events of the session. Each names minji as its "user_id"; the first profile event has it among its own
// values.
const std::multiset<std::string> expectedEvents{
    "ol_set_user_profile",
    "ol_set_user_profile",
    "ol_set_user_profile",
    "opened",
    "searched",
    "added_to_cart",
    "ordered",
    "opened_again",
};

void require(bool holds, const std::string& why) {
  if (!holds) throw std::runtime_error(why);
}

void print(const std::vector<ReceivedEvent>& events) {
  for (const auto& event : events) {
    std::cout << "    " << event.eventId << "  " << std::left << std::setw(20) << event.eventName << " user "
              << event.userId.value_or("-") << "  at " << event.eventTime << "  delivered "
              << event.deliveries << (event.deliveries == 1 ? " time" : " times") << "\n";
  }
}

}  // namespace

Session::Session(const std::filesystem::path& folder)
    : folder_(folder), service_({.dataDirectory = folder / "service"}) {}

void Session::play() {
  online();
  offline();
  killed();
  restarted();
  accounted();
}

void Session::step(const std::string& what, const std::string& byHand) {
  std::cout << "[" << ++steps_ << "/7] " << what << "\n      by hand: " << byHand << std::endl;
}

std::unique_ptr<ConsoleProcess> Session::launch() const {
  return std::make_unique<ConsoleProcess>(
      std::vector<std::string>{"--data", (folder_ / "device").string(), "--service", service_.baseUrl(),
                               "--certificate", service_.certificatePath().string()});
}

void Session::online() {
  service_.start();
  step("the campaign service answers at " + service_.baseUrl() + " (open it in a browser)",
       "build/dev/apps/devservice/orrelo-devservice, which says where its certificate is");
  console_ = launch();
  console_->command("signin minji optin level=3");
  console_->command(std::string("token ") + token);
  console_->command("send opened screen=home");
  step("the console is up: minji signed in, can be notified and opened the home screen",
       "build/dev/apps/console/orrelo-console --service https://localhost:9443 --certificate FILE, then "
       "\"signin minji optin level=3\", \"send opened screen=home\"");
  require(service_.waitForEvents(2, deliveryTimeout), "the first events did not arrive");
  require(service_.waitForRequests("/token", 1, deliveryTimeout), "the push token did not arrive");
}

void Session::offline() {
  waitForStored(0);  // delivered and acknowledged
  service_.stop();
  console_->command("send searched words=[\"blue\", \"shoes\"] results=12");
  console_->command("send added_to_cart item=\"blue shoes\" price=39.9 new=true");
  console_->command("send ordered at=date(2026-01-02T03:04:05Z)");
  step("the service is gone; three events happened meanwhile",
       "stop the service with Ctrl+C, then \"send ordered price=39.9\" and \"stored\" in the console");
  for (const auto& line : waitForStored(3)) {
    storedIds_.insert(line.substr(2, 36));
    std::cout << "    " << line.substr(2) << "\n";
  }
}

std::vector<std::string> Session::waitForStored(std::size_t count) {
  // The console reads the files, and a commit may follow its command with a delay.
  const auto deadline = std::chrono::steady_clock::now() + deliveryTimeout;
  while (true) {
    auto lines = console_->command("stored");
    lines.pop_back();  // the count
    if (lines.size() == count) return lines;
    require(std::chrono::steady_clock::now() < deadline, "the store does not hold what it must");
  }
}

void Session::killed() {
  console_->kill();
  step("the console was killed with SIGKILL, " + std::to_string(storedIds_.size()) + " events in its store",
       "pkill -KILL orrelo-console");
}

void Session::restarted() {
  service_.start();
  console_ = launch();
  require(console_->command("user").front() == "minji", "the kit forgot who was signed in");
  console_->command("signin minji optin level=3");
  console_->command("signin minji optin level=3");
  console_->command("send opened_again screen=home");
  step("service and console are back; two sign-ins and an event more. The rest follows every 10 seconds",
       "start both again as above; \"user\" tells who was signed in");
}

void Session::accounted() {
  const auto total = static_cast<std::int64_t>(expectedEvents.size());
  for (std::int64_t count = service_.eventCount(); count < total; count = service_.eventCount()) {
    require(service_.waitForEvents(count + 1, deliveryTimeout), "an event did not arrive");
    std::cout << "      " << service_.eventCount() << " of " << total << " events\n" << std::flush;
  }
  require(console_->quit() == 0, "the console did not end well");
  const auto events = service_.events();
  step("the service received the events below",
       "open https://localhost:9443, or curl --cacert FILE https://localhost:9443/admin/state");
  print(events);

  std::multiset<std::string> names;
  for (const auto& event : events) {
    names.insert(event.eventName);
    const auto user = event.values.find("user_id");
    require(user != event.values.end() && user->second == "minji", event.eventName + " names another user");
  }
  for (const auto& name : expectedEvents) {
    require(names.count(name) == expectedEvents.count(name),
            "\"" + name + "\" did not come as often as it happened");
  }
  const auto tokens = service_.tokens();
  require(std::ranges::any_of(tokens,
                              [](const auto& each) { return each.userId == "minji" && each.token == token; }),
          "minji's push token was not kept");
  for (const auto& id : storedIds_) {
    require(std::any_of(events.begin(), events.end(), [&](const auto& event) { return event.eventId == id; }),
            "the stored event " + id + " came under another id or not at all");
  }
  step("every event arrived, under the id that it was stored with",
       "compare the ids of \"stored\" with those on the service's page");
}

}  // namespace orrelo::console

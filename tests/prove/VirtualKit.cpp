#include "prove/VirtualKit.h"

#include "platform/journal/FileEventJournal.h"
#include "platform/store/SqliteEventDatabase.h"
#include "prove/FileCalls.h"

#include <orrelo/Orrelo.h>

#include <array>
#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <sys/wait.h>
#include <unistd.h>

namespace orrelo::prove {
namespace {

constexpr auto configuration = R"({"sdk_enable": true, "notification_polling_interval": 1000,
  "auto_swipe_interval": 1000, "app_install_link": "", "push_service_setting": "None",
  "color": {"main": "#1290FF", "sub1": "#66B9FF", "sub2": "#0076DE"},
  "plugins": {"pointsystem": false, "gifticon": false,
              "naverpay": {"is_enabled": false, "entry_view_message": "", "exchange_text": "", "landing_url": ""}},
  "entries": []})";

/// The journal waits for its first file, so its tasks cannot wait for the loop.
class ImmediateExecutor final : public SerialExecutor {
 public:
  void post(Task task) override { task(); }
};

}  // namespace

VirtualKit::VirtualKit(const std::filesystem::path& folder, int start)
    : clock(std::make_shared<test::ManualClock>(Date::fromSeconds(1'700'000'000 + start))),
      loop(std::make_shared<test::ManualLoop>(clock)) {
  auto platform = Platform::posix({.bundleIdentifier = "com.example.prove",
                                   .shortVersion = "1",
                                   .bundleVersion = "1",
                                   .dataDirectory = folder / "data",
                                   .cacheDirectory = folder / "cache"});
  platform.mainLoop = loop;
  platform.workers = loop;
  platform.clock = clock;
  platform.urlSession = session;
  platform.eventDatabases = std::make_shared<SqliteEventDatabaseFactory>(platform.directories, clock, loop);
  platform.eventJournal = std::make_shared<FileEventJournal>(JournalEnvironment{
      platform.directories, clock, platform.random, std::make_shared<ImmediateExecutor>(), loop});
  session->responder = [this](const URLRequest& request) { return answer(request); };
  Platform::install(std::move(platform));
}

void VirtualKit::report(const std::string& number, const std::string& text) {
  const auto former = FileCalls::failed();
  Orrelo::sendEvent("reported", {{"n", number}, {"text", text}});
  // The journal has failed, so the event waits in memory, where it does not survive the process.
  const bool isInMemory = FileCalls::failed() != former;
  writeLine((isInMemory ? "memory " : "told ") + number);
}

std::optional<URLSessionResult> VirtualKit::answer(const URLRequest& request) {
  session->requests.clear();
  const auto path = request.url.path();
  if (path.ends_with("/config")) {
    if (configStatus == 0) return std::nullopt;
    return session->reply(configStatus, configuration);
  }
  if (!path.ends_with("/event") && !path.ends_with("/events")) return session->reply(404);
  if (eventStatus != 200) return session->reply(eventStatus);
  auto events = nlohmann::json::parse(*request.body);
  if (!events.is_array()) events = nlohmann::json::array({events});
  for (const auto& event : events) {
    const std::string number = event.value("n", event.value("campaign_id", std::string()));
    const std::string id = event.at("event_id");
    if (onSent) {
      onSent(number, id);
    } else {
      writeLine("sent " + number + " " + id);
    }
  }
  return session->reply(200);
}

void writeLine(const std::string& line) {
  const auto text = line + "\n";
  if (write(STDOUT_FILENO, text.data(), text.size()) < 0) _exit(4);
}

Ended runInChild(const std::filesystem::path& errors, const std::function<void()>& work) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const auto child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    alarm(60);
    dup2(ends[1], STDOUT_FILENO);
    dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600), STDERR_FILENO);
    close(ends[0]);
    work();
    _exit(0);
  }
  close(ends[1]);
  Ended ended;
  std::array<char, 65536> chunk{};
  for (ssize_t got = 0; (got = read(ends[0], chunk.data(), chunk.size())) > 0;)
    ended.output.append(chunk.data(), static_cast<std::size_t>(got));
  close(ends[0]);
  waitpid(child, &ended.status, 0);
  return ended;
}

}  // namespace orrelo::prove

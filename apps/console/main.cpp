// A host application without screens that reads commands from standard input, one per line.
#include "StoredEvents.h"
#include "ValueParser.h"
#include "readPayload.h"

#include <orrelo/Orrelo.h>

#include <algorithm>
#include <charconv>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace {

using namespace orrelo;

// The only option of a process that lists the stores.
constexpr auto listStored = "--list-stored";

constexpr auto usage =
    "orrelo-console [--app-key KEY] [--data DIR] [--service URL --certificate FILE] [--notification FILE]\n"
    "  --app-key       names the application at the service (default: demo)\n"
    "  --data          where the kit keeps its files (default: the user's data folder)\n"
    "  --service       an https URL: the kit turns to it as its development service, from now on\n"
    "  --certificate   the file of certificates to trust there\n"
    "  --notification  a JSON file: the notification whose tap has started this host\n";

constexpr auto help =
    "signin ID [optin|optout] [key=value ...]   say who the user is\n"
    "signout                                    say that nobody is\n"
    "send NAME [key=value ...]                  report an event\n"
    "token TEXT                                 give the kit a push token: the rest of the line\n"
    "devicetoken HEX                            give it the bytes of a device token\n"
    "notify FILE|JSON                           tap on a notification with this payload\n"
    "arrive FILE|JSON                           let such a notification arrive\n"
    "stored                                     show the events that wait for the service\n"
    "user                                       show the last user that the kit remembers\n"
    "log                                        let the kit talk\n"
    "quit                                       end at once\n"
    "Values: null true 3 3.5 text \"a text\" [1, 2] set[1, 2] {key: value} date(2026-01-02T03:04:05Z) "
    "uuid(...) url(...)\n";

// Writes a line in one call, so that a line of the kit's log from another thread cannot come between its
// parts.
void print(const std::string& line) {
  std::cout << line + '\n' << std::flush;
}

using Options = std::map<std::string, std::string, std::less<>>;

bool readOptions(int count, char** words, Options& options) {
  for (int i = 1; i < count; i += 2) {
    const std::string name = words[i];
    const bool isKnown = name == "--app-key" || name == "--data" || name == "--service" ||
                         name == "--certificate" || name == "--notification";
    if (!isKnown || i + 1 == count) return false;
    options[name] = words[i + 1];
  }
  return options.contains("--service") == options.contains("--certificate");
}

// These settings select the service. The kit reads them once, in Orrelo::initialize.
void chooseDevelopmentService(const Options& options) {
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", options.find("--service")->second);
  suite->set("ORRELO_DEVELOPMENT_CA", options.find("--certificate")->second);
}

void signIn(std::vector<std::string> words) {
  if (words.empty()) throw console::SyntaxError("signin needs an id");
  const auto id = words.front();
  words.erase(words.begin());
  auto status = ORLMarketingStatus::unknown;
  if (!words.empty() && (words.front() == "optin" || words.front() == "optout")) {
    status = words.front() == "optin" ? ORLMarketingStatus::optIn : ORLMarketingStatus::optOut;
    words.erase(words.begin());
  }
  Orrelo::setUser(ORLUser(id, status, console::parseValues(words)));
}

void sendEvent(const std::vector<std::string>& words) {
  if (words.empty()) throw console::SyntaxError("send needs a name");
  Orrelo::sendEvent(words.front(), console::parseValues({words.begin() + 1, words.end()}));
}

std::vector<std::byte> bytesOf(std::string_view hex) {
  std::vector<std::byte> bytes;
  for (; !hex.empty(); hex.remove_prefix(2)) {
    unsigned byte = 0;
    const auto* const end = hex.data() + std::min<std::size_t>(hex.size(), 2);
    const auto read = std::from_chars(hex.data(), end, byte, 16);
    if (hex.size() < 2 || read.ec != std::errc() || read.ptr != end) {
      throw console::SyntaxError("a device token is written as pairs of hexadecimal digits");
    }
    bytes.push_back(std::byte(byte));
  }
  return bytes;
}

// This host has no screen over which the kit could open the notification's page. The kit still tells by the
// completion whether a notification is its own.
void handleNotification(const EventDictionary& payload, bool isTap) {
  bool isHandled = false;
  if (isTap) {
    Orrelo::userNotificationCenter({payload}, [&] { isHandled = true; });
  } else {
    Orrelo::application(payload, [&](BackgroundFetchResult) { isHandled = true; });
  }
  print(isHandled ? "the kit has handled it" : "not the kit's: left to this host");
}

EventDictionary payloadFrom(const std::string& argument) {
  return argument.starts_with('{') ? notification::payloadOf(argument) : notification::readPayload(argument);
}

// Runs a command whose argument is the whole rest of the line. Returns false for any other command.
bool runWithText(const std::string& command, const std::string& argument) {
  if (command == "token") {
    Orrelo::setPushToken(argument);
  } else if (command == "devicetoken") {
    Orrelo::setDeviceToken(bytesOf(argument));
  } else if (command == "notify" || command == "arrive") {
    handleNotification(payloadFrom(argument), command == "notify");
  } else {
    return false;
  }
  print("ok " + command);
  return true;
}

void run(const std::string& line) {
  try {
    const auto blank = std::min(line.find(' '), line.size());
    if (runWithText(line.substr(0, blank), line.substr(std::min(blank + 1, line.size())))) return;
    auto words = console::splitWords(line);
    if (words.empty()) return;
    const auto command = words.front();
    words.erase(words.begin());
    if (command == "signin") {
      signIn(words);
    } else if (command == "signout") {
      Orrelo::setUser(std::nullopt);
    } else if (command == "send") {
      sendEvent(words);
    } else if (command == "stored") {
      print(console::storedEventsFromProcess(listStored, Platform::current().directories->data()));
    } else if (command == "user") {
      print(Platform::current().userDefaults->standard()->text("orrelo_user_id").value_or("-"));
    } else if (command == "log") {
      ORLLogger::enable();
    } else if (command == "quit") {
      RunLoop::main().stop();
    } else {
      std::cout << help << std::flush;
      return;
    }
    print("ok " + command);
  } catch (const std::exception& exception) {
    print(std::string("no: ") + exception.what());
  }
}

}  // namespace

int main(int count, char** words) {
  if (count == 3 && std::string_view(words[1]) == listStored) {
    std::cout << console::storedEvents(words[2]) << std::flush;
    return 0;
  }
  Options options;
  if (!readOptions(count, words, options)) {
    std::cerr << usage;
    return 2;
  }
  std::optional<EventDictionary> notification;
  try {
    const auto file = options.find("--notification");
    if (file != options.end()) notification = notification::readPayload(file->second);
  } catch (const std::exception& exception) {
    std::cerr << "orrelo-console: " << exception.what() << "\n";
    return 2;
  }
  auto& loop = RunLoop::main();
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.orrelo-console",
                                     .shortVersion = "1.0",
                                     .bundleVersion = "1",
                                     .dataDirectory = options["--data"],
                                     .cacheDirectory = options["--data"]}));
  if (options.contains("--service")) chooseDevelopmentService(options);
  Orrelo::initialize(ORLConfig(options.contains("--app-key") ? options["--app-key"] : "demo"));
  print("ready; type help");
  if (notification) loop.post([payload = *notification] { handleNotification(payload, true); });

  std::thread([&loop] {
    std::string line;
    while (std::getline(std::cin, line)) loop.post([line] { run(line); });
    loop.post([&loop] { loop.stop(); });
  }).detach();
  loop.run();
  std::cout.flush();
  std::_Exit(0);  // the detached thread may still be reading
}

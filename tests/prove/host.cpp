#include "prove/Proofs.h"
#include "prove/VirtualKit.h"

#include <orrelo/Orrelo.h>

#include <random>
#include <thread>
#include <unistd.h>

namespace orrelo::prove {
namespace {

[[noreturn]] void reportForever(const std::string& prefix, std::chrono::microseconds pause) {
  std::mt19937 random(std::random_device{}());
  for (int number = 0;; ++number) {
    // Every 50th is large, so that some kills meet a long write.
    const std::size_t size = number % 50 == 49 ? 100'000 : random() % 400;
    Orrelo::sendEvent("reported",
                      {{"n", prefix + "-" + std::to_string(number)}, {"text", std::string(size, 'v')}});
    writeLine("told " + prefix + "-" + std::to_string(number));
    if (random() % 3 == 0) std::this_thread::sleep_for(random() % 6 * pause);
  }
}

}  // namespace

int runHost(const std::vector<std::string>& words) {
  if (words.size() != 5) return 2;
  const auto& prefix = words[3];
  // The version is sent with each request, so that the service knows the sender.
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.prove",
                                     .shortVersion = std::to_string(getpid()),
                                     .bundleVersion = "1",
                                     .dataDirectory = words[0],
                                     .cacheDirectory = words[0] + "-cache"}));
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", words[1]);
  suite->set("ORRELO_DEVELOPMENT_CA", words[2]);
  writeLine("pid " + std::to_string(getpid()));
  Orrelo::initialize(ORLConfig("prove"));
  if (prefix.empty()) {
    Orrelo::flush(std::chrono::hours(1),
                  [](bool isFlushed) { writeLine(isFlushed ? "flushed" : "not flushed"); });
  } else {
    std::thread([&] { reportForever(prefix, std::chrono::microseconds(std::stoi(words[4]))); }).detach();
  }
  RunLoop::main().run();
  return 0;
}

}  // namespace orrelo::prove

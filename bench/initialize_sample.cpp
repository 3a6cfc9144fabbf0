// Prints the cost of one `Orrelo::initialize`: milliseconds, threads of the process, and mebibytes of memory.
// Usage: orrelo-bench-initialize <data folder> <service URL> <certificate file>
#include <orrelo/Orrelo.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

// Reads a number from /proc/self/status. RssAnon excludes the pages of the libraries themselves.
long status(const std::string& name) {
  std::ifstream file("/proc/self/status");
  std::string line;
  while (std::getline(file, line)) {
    if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
  }
  return -1;
}

}  // namespace

int main(int count, char** words) {
  using namespace orrelo;
  if (count != 4) return 2;
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.sample",
                                     .shortVersion = "1",
                                     .bundleVersion = "1",
                                     .dataDirectory = words[1],
                                     .cacheDirectory = words[1]}));
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", std::string(words[2]));
  suite->set("ORRELO_DEVELOPMENT_CA", std::string(words[3]));

  const long before = status("RssAnon");
  const auto start = std::chrono::steady_clock::now();
  Orrelo::initialize(ORLConfig("sample"));
  const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
  Orrelo::sendEvent("started");  // starts the stores and the network too

  long threads = 0;
  long after = 0;
  for (int i = 0; i < 30; ++i) {
    RunLoop::main().runFor(std::chrono::milliseconds(10));
    threads = std::max(threads, status("Threads"));
    after = std::max(after, status("RssAnon"));
  }
  std::printf("%f %ld %f\n", elapsed.count(), threads, static_cast<double>(after - before) / 1024.0);
}

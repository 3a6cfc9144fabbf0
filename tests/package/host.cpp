// A host that knows nothing but the installed kit.
#include <orrelo/Orrelo.h>

#include <filesystem>
#include <iostream>

int main(int, char** arguments) {
  using namespace orrelo;
  const auto folder = std::filesystem::temp_directory_path() / std::filesystem::path(arguments[0]).filename();
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.packaged-host",
                                     .shortVersion = "1.0",
                                     .bundleVersion = "1",
                                     .dataDirectory = folder,
                                     .cacheDirectory = folder}));
  // The service of this host is a port where nobody answers, and an address that needs no name server: the
  // C library's resolver, interrupted by the end of the process, is a leak to the leak checker.
  const auto environment = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  environment->set("ORRELO_SERVICE_URL", std::int64_t{3});
  environment->set("ORRELO_DEVELOPMENT_URL", std::string("https://127.0.0.1:9"));

  Orrelo::initialize(ORLConfig("packaged-host"));
  Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::optIn, {{"level", 3}}));
  Orrelo::sendEvent("started", {{"from", EventArray{"package", 1, true}}});

  bool refused = false;
  try {
    Orrelo::asInterface().sendEvent("started", {{"nothing", nullptr}});
  } catch (const UnsupportedEventValueException& exception) {
    refused = exception.reason() == "Null is not supported class";
  }
  const auto stored = Platform::current().userDefaults->standard()->text("orrelo_user_id");
  std::cout << "user " << stored.value_or("missing") << ", unsupported value "
            << (refused ? "refused" : "taken") << "\n";
  return refused && stored == "user-1" ? 0 : 1;
}

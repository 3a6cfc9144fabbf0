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

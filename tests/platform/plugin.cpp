// A plugin of a host: starts the kit and reports an event.
#include <orrelo/Orrelo.h>

extern "C" __attribute__((visibility("default"))) void start(const char* folder) {
  using namespace orrelo;
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.plugin",
                                     .shortVersion = "1.0",
                                     .bundleVersion = "1",
                                     .dataDirectory = folder,
                                     .cacheDirectory = folder}));
  Orrelo::initialize(ORLConfig("plugin"));
  Orrelo::sendEvent("started");
}

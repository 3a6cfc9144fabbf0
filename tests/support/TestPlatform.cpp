#include "support/TestPlatform.h"

namespace orrelo::test {

TestPlatform::TestPlatform() {
  Platform platform;
  platform.mainLoop = loop;
  platform.workers = loop;
  platform.clock = clock;
  platform.random = std::make_shared<CountingRandom>();
  platform.urlSession = session;
  platform.userDefaults = defaults;
  platform.directories = std::make_shared<FolderDirectories>(folder.path());
  platform.eventDatabases = std::make_shared<SqliteEventDatabaseFactory>(platform.directories, clock, loop);
  platform.device = device;
  platform.mainBundle = std::make_shared<FixedBundle>(
      std::map<std::string, std::string>{{"CFBundleIdentifier", "com.example.shop"},
                                         {"CFBundleShortVersionString", "2.1"},
                                         {"CFBundleVersion", "21"}});
  platform.kitBundle = std::make_shared<FixedBundle>(
      std::map<std::string, std::string>{{"CFBundleShortVersionString", "1.0.0"}, {"ORLBuildNumber", "1"}});
  platform.application = application;
  platform.imageCodec = codec;
  platform.displayLink = displayLink;
  Platform::install(std::move(platform));
}

TestPlatform::~TestPlatform() = default;

}  // namespace orrelo::test

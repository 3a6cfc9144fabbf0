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
  platform.eventJournal = journal;
  platform.device = device;
  platform.mainBundle = std::make_shared<FixedBundle>(
      std::map<std::string, std::string>{{"CFBundleIdentifier", "com.example.shop"},
                                         {"CFBundleShortVersionString", "2.1"},
                                         {"CFBundleVersion", "21"}});
  platform.kitBundle = std::make_shared<FixedBundle>(
      std::map<std::string, std::string>{{"CFBundleShortVersionString", "1.0.0"}, {"ORLBuildNumber", "1"}});
  application->setPasteboardWriter([to = texts](const auto& text) { to->pasteboard.push_back(text); });
  application->setSharer([to = texts](const auto& text) { to->shared.push_back(text); });
  platform.application = application;
  platform.imageCodec = codec;
  platform.displayLink = displayLink;
  Platform::install(std::move(platform));
}

TestPlatform::~TestPlatform() = default;

}  // namespace orrelo::test

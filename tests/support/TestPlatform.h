#pragma once

#include "platform/posix/PosixApplication.h"
#include "platform/store/SqliteEventDatabase.h"
#include "support/PlainImageCodec.h"
#include "support/TemporaryFolder.h"
#include "support/Twins.h"

#include <orrelo/Platform.h>

#include <filesystem>
#include <memory>

namespace orrelo::test {

/// A platform of test doubles with real SQLite stores, installed by the constructor. Work runs only while the
/// test runs `loop`.
class TestPlatform {
 public:
  TestPlatform() {
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
    Platform::install(std::move(platform));
  }

  TemporaryFolder folder;
  std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
  std::shared_ptr<ManualLoop> loop = std::make_shared<ManualLoop>(clock);
  std::shared_ptr<ScriptedURLSession> session = std::make_shared<ScriptedURLSession>();
  std::shared_ptr<MemoryDefaultsFactory> defaults = std::make_shared<MemoryDefaultsFactory>();
  std::shared_ptr<FixedDevice> device = std::make_shared<FixedDevice>();
  std::shared_ptr<PosixApplication> application = std::make_shared<PosixApplication>();
  std::shared_ptr<PlainImageCodec> codec = std::make_shared<PlainImageCodec>();
};

}  // namespace orrelo::test

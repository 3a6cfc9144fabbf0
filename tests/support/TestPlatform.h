#pragma once

#include "platform/posix/PosixApplication.h"
#include "platform/store/SqliteEventDatabase.h"
#include "support/MemoryEventJournal.h"
#include "support/PlainImageCodec.h"
#include "support/TemporaryFolder.h"
#include "support/Twins.h"

#include <orrelo/Platform.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace orrelo::test {

/// A platform of test doubles with real SQLite stores, installed by the constructor. Work runs only while the
/// test runs `loop`.
class TestPlatform {
 public:
  TestPlatform();
  ~TestPlatform();

  TemporaryFolder folder;
  std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
  std::shared_ptr<ManualLoop> loop = std::make_shared<ManualLoop>(clock);
  std::shared_ptr<ScriptedURLSession> session = std::make_shared<ScriptedURLSession>();
  std::shared_ptr<MemoryDefaultsFactory> defaults = std::make_shared<MemoryDefaultsFactory>();
  std::shared_ptr<MemoryEventJournal> journal = std::make_shared<MemoryEventJournal>();
  std::shared_ptr<FixedDevice> device = std::make_shared<FixedDevice>();
  std::shared_ptr<PosixApplication> application = std::make_shared<PosixApplication>();
  /// The texts that the kit has put on the pasteboard and shared, in order.
  struct Texts {
    std::vector<std::string> pasteboard;
    std::vector<std::string> shared;
  };
  std::shared_ptr<Texts> texts = std::make_shared<Texts>();
  std::shared_ptr<ManualDisplayLink> displayLink = std::make_shared<ManualDisplayLink>();
  std::shared_ptr<PlainImageCodec> codec = std::make_shared<PlainImageCodec>();
};

}  // namespace orrelo::test

#include "base/Logger.h"
#include "platform/http/CurlURLSession.h"
#include "platform/journal/FileEventJournal.h"
#include "platform/posix/PosixApplication.h"
#include "platform/posix/PosixBundle.h"
#include "platform/posix/PosixDevice.h"
#include "platform/posix/PosixDirectories.h"
#include "platform/posix/SystemClock.h"
#include "platform/posix/SystemRandom.h"
#include "platform/store/SqliteEventDatabase.h"
#include "platform/store/SqliteUserDefaults.h"
#include "platform/threads/PosixWorkerPool.h"

#include <orrelo/Platform.h>

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

std::mutex installMutex;
std::atomic<const Platform*> installed = nullptr;

/// Stores the platform forever, as well as all previous ones: callers may still hold references to them.
const Platform& keep(Platform platform) {
  static auto* const kept = new std::vector<std::unique_ptr<const Platform>>;
  kept->push_back(std::make_unique<const Platform>(std::move(platform)));
  const auto& current = *kept->back();
  if (current.clock) setLogClock([clock = current.clock] { return clock->now(); });
  installed.store(&current, std::memory_order_release);
  return current;
}

}  // namespace

Platform Platform::posix(const HostApplication& host) {
  Platform platform;
  platform.mainLoop = std::shared_ptr<MainLoop>(&RunLoop::main(), [](MainLoop*) {});
  platform.workers = std::make_shared<PosixWorkerPool>();
  platform.clock = std::make_shared<SystemClock>();
  platform.random = std::make_shared<SystemRandom>();
  platform.urlSession = makeCurlURLSession();
  platform.directories = std::make_shared<PosixDirectories>(host);
  platform.userDefaults = std::make_shared<SqliteUserDefaultsFactory>(platform.directories, platform.clock,
                                                                      bundleIdentifier(host));
  const auto writer = WriterQueue::shared();
  platform.eventDatabases =
      std::make_shared<SqliteEventDatabaseFactory>(platform.directories, platform.clock, writer);
  platform.eventJournal = std::make_shared<FileEventJournal>(
      JournalEnvironment{platform.directories, platform.clock, platform.random, writer, platform.workers});
  platform.device = std::make_shared<PosixDevice>();
  platform.mainBundle = PosixBundle::main(host);
  platform.kitBundle = PosixBundle::kit();
  platform.application = std::make_shared<PosixApplication>();
  platform.developmentService = host.developmentService;
  return platform;
}

void Platform::install(Platform platform) {
  const std::lock_guard lock(installMutex);
  keep(std::move(platform));
}

const Platform& Platform::current() {
  if (const auto* platform = installed.load(std::memory_order_acquire)) return *platform;
  const std::lock_guard lock(installMutex);
  if (const auto* platform = installed.load(std::memory_order_relaxed)) return *platform;
  return keep(posix());
}

}  // namespace orrelo

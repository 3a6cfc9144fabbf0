#include "base/Logger.h"
#include "base/explain.h"
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
#include <orrelo/platform/WorkerPool.h>

#include <atomic>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

std::mutex installMutex;
std::atomic<const Platform*> installed = nullptr;
bool hasInstalled = false;  // guarded by the mutex

/// Stores the platform forever, as well as all previous ones: callers may still hold references to them.
const Platform& keep(Platform platform) {
  static auto* const kept = new std::vector<std::unique_ptr<const Platform>>;
  kept->push_back(std::make_unique<const Platform>(std::move(platform)));
  const auto& current = *kept->back();
  if (current.clock) setLogClock([clock = current.clock] { return clock->now(); });
  installed.store(&current, std::memory_order_release);
  return current;
}

/// Without the lock, since lines that wait are posted at once to the host's own workers, which may use the
/// platform.
const Platform& explainOn(const Platform& platform) {
  setExplanationExecutor([workers = platform.workers](std::function<void()> task) {
    workers->post(QualityOfService::utility, std::move(task));
  });
  return platform;
}

/// Takes what the host has left out from the POSIX defaults, since the kit relies on all members but the
/// journal, the codec and the display link. Returns the names of the members.
std::vector<std::string> complete(Platform& platform) {
  std::vector<std::string> missing;
  std::optional<Platform> defaults;
  const auto take = [&](const char* name, auto Platform::*member) {
    if (platform.*member) return;
    if (!defaults) defaults = Platform::posix();
    platform.*member = (*defaults).*member;
    missing.emplace_back(name);
  };
  take("mainLoop", &Platform::mainLoop);
  take("workers", &Platform::workers);
  take("clock", &Platform::clock);
  take("random", &Platform::random);
  take("urlSession", &Platform::urlSession);
  take("userDefaults", &Platform::userDefaults);
  take("eventDatabases", &Platform::eventDatabases);
  take("directories", &Platform::directories);
  take("device", &Platform::device);
  take("mainBundle", &Platform::mainBundle);
  take("kitBundle", &Platform::kitBundle);
  take("application", &Platform::application);
  return missing;
}

void explainMissing(const std::vector<std::string>& names) {
  for (const auto& name : names) {
    explain(ExplanationLevel::warning, [&name] {
      return "Platform::install is given no " + name +
             ", and the POSIX default takes its place: begin with Platform::posix() and replace members of "
             "it.";
    });
  }
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
  explainMissing(complete(platform));
  bool isFirst = false;
  bool isLate = false;
  const Platform* current = nullptr;
  {
    const std::lock_guard lock(installMutex);
    isFirst = installed.load(std::memory_order_relaxed) == nullptr;
    isLate = !isFirst && !hasInstalled;
    hasInstalled = true;
    current = &keep(std::move(platform));
  }
  explainOn(*current);
  if (isFirst) return;
  explain(ExplanationLevel::warning, [isLate] {
    return std::string(isLate ? "Platform::install comes after the first use of the kit"
                              : "Platform::install is called again") +
           ": what runs already keeps the former platform. Call it once, before Orrelo::initialize.";
  });
}

const Platform& Platform::current() {
  if (const auto* platform = installed.load(std::memory_order_acquire)) return *platform;
  std::unique_lock lock(installMutex);
  if (const auto* platform = installed.load(std::memory_order_relaxed)) return *platform;
  const auto& platform = keep(posix());
  lock.unlock();
  return explainOn(platform);
}

}  // namespace orrelo

#pragma once

#include <orrelo/Export.h>
#include <orrelo/MainLoop.h>
#include <orrelo/UserDefaults.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

class Application;
class Clock;
class EventDatabaseFactory;
class ImageCodec;
class Random;
class URLSession;
class WorkerPool;

/// What an application or a library says of itself: the entries of its information dictionary.
class ORRELO_EXPORT Bundle {
 public:
  virtual ~Bundle() = default;

  virtual bool hasInfoDictionary() const = 0;
  /// Nothing for an absent entry and for one that is no text.
  virtual std::optional<std::string> info(std::string_view key) const = 0;
};

/// What the machine says of itself. Asked at `Orrelo::initialize`.
class ORRELO_EXPORT Device {
 public:
  virtual ~Device() = default;

  virtual std::string systemVersion() const = 0;
  /// "ko_KR"
  virtual std::string localeIdentifier() const = 0;
  /// "Asia/Seoul"
  virtual std::string timeZoneIdentifier() const = 0;
};

/// Where the kit keeps its files.
class ORRELO_EXPORT Directories {
 public:
  virtual ~Directories() = default;

  /// Stores that must outlive the process. Made when it is missing.
  virtual std::filesystem::path data() const = 0;
  /// What can be fetched again.
  virtual std::filesystem::path cache() const = 0;
};

/// The application that the kit is linked into, for the POSIX defaults.
struct HostApplication {
  /// Names the folder of the kit's stores and goes to the service; the executable's name where it is empty.
  std::string bundleIdentifier = {};
  std::string shortVersion = {};
  std::string bundleVersion = {};
  /// Empty: "$XDG_DATA_HOME/<bundle identifier>", else "~/.local/share/<bundle identifier>".
  std::filesystem::path dataDirectory = {};
  /// Empty: "$XDG_CACHE_HOME/<bundle identifier>", else "~/.cache/<bundle identifier>".
  std::filesystem::path cacheDirectory = {};
  /// Besides "http" and "https", the schemes of URLs that can be opened on the machine or by the host itself.
  std::vector<std::string> urlSchemes = {};
};

/// Everything that the kit asks of a machine. Nothing in the kit reads the time, the disk, the network or a
/// random source but through this record.
struct ORRELO_EXPORT Platform {
  std::shared_ptr<MainLoop> mainLoop;
  std::shared_ptr<WorkerPool> workers;
  std::shared_ptr<Clock> clock;
  std::shared_ptr<Random> random;
  std::shared_ptr<URLSession> urlSession;
  std::shared_ptr<UserDefaultsFactory> userDefaults;
  std::shared_ptr<EventDatabaseFactory> eventDatabases;
  std::shared_ptr<Directories> directories;
  std::shared_ptr<Device> device;
  std::shared_ptr<Bundle> mainBundle;
  std::shared_ptr<Bundle> kitBundle;
  std::shared_ptr<Application> application;
  /// Null where there is none, as in the POSIX defaults: no picture can be shown then.
  std::shared_ptr<ImageCodec> imageCodec;

  /// A machine with POSIX files, curl and SQLite, and RunLoop::main() as main loop. A front replaces what it
  /// knows better.
  static Platform posix(const HostApplication& host = {});

  /// Makes `platform` the one in use. Once, before `Orrelo::initialize` and before other threads use the kit;
  /// without it the POSIX defaults serve.
  static void install(Platform platform);
  static const Platform& current();
};

}  // namespace orrelo

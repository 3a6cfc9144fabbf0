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
class DisplayLink;
class EventDatabaseFactory;
class EventJournal;
class ImageCodec;
class Random;
class URLSession;
class WorkerPool;

/// The information dictionary of an application or a library.
class ORRELO_EXPORT Bundle {
 public:
  virtual ~Bundle() = default;

  virtual bool hasInfoDictionary() const = 0;
  /// The entry's text; nullopt if the entry is absent or not a text.
  virtual std::optional<std::string> info(std::string_view key) const = 0;
};

/// Properties of the machine. Read at `Orrelo::initialize`.
class ORRELO_EXPORT Device {
 public:
  virtual ~Device() = default;

  virtual std::string systemVersion() const = 0;
  /// Example: "ko_KR".
  virtual std::string localeIdentifier() const = 0;
  /// Example: "Asia/Seoul".
  virtual std::string timeZoneIdentifier() const = 0;
};

/// The folders in which the kit keeps its files.
class ORRELO_EXPORT Directories {
 public:
  virtual ~Directories() = default;

  /// The folder of the persistent stores. Created if missing.
  virtual std::filesystem::path data() const = 0;
  /// The folder of files that can be fetched again.
  virtual std::filesystem::path cache() const = 0;
};

/// A campaign service on a developer's machine.
struct DevelopmentService {
  /// An https URL, such as "https://localhost:9443". Empty if there is none.
  std::string url = {};
  /// A PEM file with the certificates that are trusted for this host, and for no other. If it is empty, the
  /// system's certificates are used.
  std::filesystem::path certificateFile = {};
};

/// Describes the host application to Platform::posix.
struct HostApplication {
  /// Names the folder of the kit's stores and is sent to the service. Defaults to the executable's name.
  std::string bundleIdentifier = {};
  std::string shortVersion = {};
  std::string bundleVersion = {};
  /// Defaults to "$XDG_DATA_HOME/<bundle identifier>", else "~/.local/share/<bundle identifier>".
  std::filesystem::path dataDirectory = {};
  /// Defaults to "$XDG_CACHE_HOME/<bundle identifier>", else "~/.cache/<bundle identifier>".
  std::filesystem::path cacheDirectory = {};
  /// Schemes of URLs that the machine or the host itself can open, in addition to "http" and "https".
  std::vector<std::string> urlSchemes = {};
  /// If it has a URL, this process uses it instead of the service that is selected on the device, and keeps
  /// its files in folders of their own, "development" within the ones above: no event of a trial reaches
  /// another service, and no setting of it applies to another process. `orrelo-devservice --print-cpp` prints
  /// it filled in.
  DevelopmentService developmentService = {};
};

/// The machine's services that the kit uses. The kit accesses the time, the disk, the network and random
/// numbers only through this record.
///
/// A host replaces members of Platform::posix() by classes of its own; the interfaces state what they
/// promise, here and in orrelo/platform. A function that a later version adds to one of them has a default,
/// so that the host's class goes on compiling. Views and screens are not among them: the kit draws these
/// itself.
struct ORRELO_EXPORT Platform {
  std::shared_ptr<MainLoop> mainLoop;
  std::shared_ptr<WorkerPool> workers;
  std::shared_ptr<Clock> clock;
  std::shared_ptr<Random> random;
  std::shared_ptr<URLSession> urlSession;
  std::shared_ptr<UserDefaultsFactory> userDefaults;
  std::shared_ptr<EventDatabaseFactory> eventDatabases;
  std::shared_ptr<EventJournal> eventJournal;
  std::shared_ptr<Directories> directories;
  std::shared_ptr<Device> device;
  std::shared_ptr<Bundle> mainBundle;
  std::shared_ptr<Bundle> kitBundle;
  std::shared_ptr<Application> application;
  /// May be null, as in the POSIX defaults; then only GIF images can be shown.
  std::shared_ptr<ImageCodec> imageCodec;
  /// May be null, as in the POSIX defaults; then animated images show their first frame.
  std::shared_ptr<DisplayLink> displayLink;
  /// Set it by HostApplication, which also keeps the files apart. A URL that is not https selects
  /// "https://localhost:9443".
  DevelopmentService developmentService;

  /// The POSIX defaults: POSIX files, curl, SQLite, and RunLoop::main() as the main loop. A front replaces
  /// the members that its toolkit provides.
  static Platform posix(const HostApplication& host = {});

  /// Makes `platform` the current one. Call it once, before `Orrelo::initialize` and before other threads use
  /// the kit; without a call the POSIX defaults are used. They also take the place of members that are null,
  /// except `eventJournal`, `imageCodec` and `displayLink`. What runs already when it is called again keeps
  /// the former platform.
  static void install(Platform platform);
  static const Platform& current();
};

}  // namespace orrelo

#pragma once

#include <orrelo/Date.h>
#include <orrelo/Export.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// What the kit knows about itself at one moment, for a host's own support page or report; see
/// Orrelo::diagnostics. It is taken from counters in memory; only the threads and the memory of the process
/// are asked of the system. Times are those of the platform's clock.
///
/// It contains the application key and URLs, but neither a push token nor a value of an event, nor the user's
/// id unless that was asked for.
struct ORRELO_EXPORT ORLDiagnostics {
  /// How the user is named.
  enum class UserIdentity {
    /// The same user of this installation has the same text, which does not reveal the id.
    hashed,
    plain
  };

  /// What `initialize` started with.
  struct Environment {
    std::string kitVersion;
    std::string kitBuild;
    /// The identifier and the version of the host's bundle.
    std::string hostIdentifier;
    std::string hostVersion;
    std::string systemVersion;
    /// Empty before `initialize`, as are the following ones.
    std::string applicationKey;
    /// "production", "staging", "staging QA" or "development".
    std::string name;
    std::string serviceUrl;
    /// The file whose certificates are trusted instead of the system's.
    std::optional<std::string> certificateFile;
    std::string dataDirectory;
  };

  /// Whence a configuration came.
  enum class ConfigurationSource {
    /// There was no answer yet.
    none,
    service,
    /// The service could not be asked; the last configuration that it had sent is used.
    device,
    /// The same, and it never sent one: events are dropped.
    defaults
  };

  /// The last configuration.
  struct Configuration {
    ConfigurationSource source = ConfigurationSource::none;
    /// When it came from the service; nullopt if that was before the start of the process, or never.
    std::optional<Date> time;
    /// True if it switches the kit on.
    bool isEnabled = false;
    /// Why the service could not be asked the last time.
    std::optional<std::string> failure;
    std::optional<Date> failureTime;
  };

  /// The events of the host and of the kit since the start of the process.
  struct Events {
    /// Those that were reported.
    std::uint64_t accepted = 0;
    /// Those that ended processes have left in their journals.
    std::uint64_t adopted = 0;
    /// Those of both that are not in their store yet.
    std::uint64_t onTheirWay = 0;
    /// The number of events that this process has dropped, by the reason; a store may have kept them for
    /// longer.
    std::map<std::string, std::uint64_t> dropped;
  };

  /// The store of events and what sends them.
  struct Pipeline {
    /// The path of the store.
    std::string store;
    /// The events in the store, as far as this process knows: others may use it too. Nullopt until it is
    /// opened, and for a store of the host that does not tell.
    std::optional<std::size_t> waiting;
    /// Why the store has refused an event, until it takes one again.
    std::optional<std::string> storeFailure;
    /// The events that the service has received since `initialize`.
    std::uint64_t sent = 0;
    /// The requests that have failed since `initialize`.
    std::uint64_t failed = 0;
    std::optional<std::string> lastFailure;
    /// Why it has ended; it then stores events, and the next `initialize` sends them.
    std::optional<std::string> ended;
  };

  /// The records of events that are not in their store yet.
  struct Journal {
    std::size_t records = 0;
    std::size_t bytes = 0;
    /// The bytes of events that it has refused, which wait in memory alone.
    std::size_t unwrittenBytes = 0;
  };

  /// A request to the service that has ended, or a picture that could not be had.
  struct Request {
    /// When it ended.
    Date time;
    std::string method;
    /// Without the values of "buid" and "userID" in its query; that of a picture without its query.
    std::string url;
    std::optional<int> status;
    std::optional<std::string> failure;
    /// From its start to its end; nullopt for a picture.
    std::optional<std::chrono::milliseconds> duration;
  };

  /// A part of a page that is not shown.
  struct Omission {
    /// The JSON pointer (RFC 6901) of the part in the service's reply.
    std::string pointer;
    /// Why, and what stands in its place.
    std::string reason;
  };

  /// A reply with the page of a campaign, or with the list of all campaigns.
  struct Page {
    static constexpr std::size_t maximumOmissions = 50;

    /// When it came.
    Date time;
    /// The path of the request, such as "/campaigns/7".
    std::string path;
    /// The first `maximumOmissions`.
    std::vector<Omission> omissions;
    /// The number of all.
    std::size_t omissionCount = 0;
  };

  /// The process that the kit runs in.
  struct Process {
    /// The threads of the kit.
    std::size_t kitThreads = 0;
    /// All threads; 0 on a system that does not tell. The same applies to the memory.
    std::size_t threads = 0;
    std::size_t residentBytes = 0;
    /// The encoded pictures that the kit keeps in memory.
    std::size_t pictureBytes = 0;
  };

  static constexpr std::size_t maximumRequests = 50;
  static constexpr std::size_t maximumPages = 20;

  /// When it was taken.
  Date time;
  bool isInitialized = false;
  Environment environment;
  Configuration configuration;
  /// The current user's id or its hash; nullopt if nobody is signed in.
  std::optional<std::string> user;
  Events events;
  Pipeline hostEvents;
  Pipeline kitEvents;
  Journal journal;
  /// At most `maximumRequests`, the last one at the end.
  std::vector<Request> requests;
  /// At most `maximumPages`, the last one at the end.
  std::vector<Page> pages;
  /// What the user has declined for today, such as "in-app messages".
  std::vector<std::string> skippedToday;
  Process process;

  /// The same as a JSON object. Its keys are the names of the fields, times are texts in RFC 3339 with UTC,
  /// durations are milliseconds, and an absent value is null.
  std::string json() const;
};

}  // namespace orrelo

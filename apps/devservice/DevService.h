#pragma once

#include "faults/Fault.h"
#include "store/Records.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

struct Options {
  /// Holds the certificate and the database; made if missing. Not to be shared by two running services.
  std::filesystem::path dataDirectory;
  /// Plain files that say what the service answers. Empty: the scenario that comes with the service.
  std::filesystem::path scenarioDirectory = {};
  /// 0 takes a free port at the first start and keeps it for later ones.
  int port = 0;
  /// The moment whose day the scenario plays, where it is to stand still; this machine's clock otherwise.
  std::optional<std::chrono::system_clock::time_point> now = {};
};

/// The local campaign service: HTTPS on 127.0.0.1 with a certificate of its own.
///
///     DevService service({.dataDirectory = directory});
///     service.start();
///     // let a client talk to service.baseUrl(), trusting service.certificatePath()
///     service.orderFault({.kind = Fault::Kind::drop, .pathSuffix = "/event", .count = 1, .carryOut = true});
///     ASSERT_TRUE(service.waitForEvents(3, std::chrono::seconds(5)));
///
/// All operations may be called from any thread. What the service received can be read while it runs and
/// after it stopped, and is still there when a new one opens the same data directory. SIGPIPE is ignored in
/// the whole process from the first start on.
class DevService {
 public:
  using EventPredicate = std::function<bool(const std::vector<ReceivedEvent>&)>;

  /// Opens the data directory. Throws std::runtime_error where it cannot be used.
  explicit DevService(const Options& options);
  /// Stops.
  ~DevService();
  DevService(const DevService&) = delete;
  DevService& operator=(const DevService&) = delete;

  /// Returns once connections are accepted; does nothing while running. Throws std::runtime_error if the port
  /// is taken.
  void start();
  /// Closes every connection, also those of requests that hang or wait, and returns when no thread of the
  /// service is left. Takes well under a second. `start` may follow, on the same port.
  void stop();
  bool isRunning() const;

  /// The port in use, or the one that the next start takes; 0 before the first start with a free port.
  int port() const;
  /// "https://localhost:<port>", without a slash at the end.
  std::string baseUrl() const;
  /// PEM file of the certificate, for a client to trust as a certificate authority.
  std::filesystem::path certificatePath() const;

  /// In order of first arrival.
  std::vector<ReceivedEvent> events() const;
  /// Different events.
  std::int64_t eventCount() const;
  /// Events counted as often as they arrived.
  std::int64_t deliveryCount() const;
  std::vector<KnownUser> users() const;
  std::vector<SavedToken> tokens() const;

  /// Waits until that many different events have been stored. False when the time is up first.
  bool waitForEvents(std::int64_t count, std::chrono::milliseconds timeout) const;
  /// Waits until the predicate holds. It is asked at once and after each arrival, on the calling thread.
  bool waitForEvents(const EventPredicate& predicate, std::chrono::milliseconds timeout) const;

  /// Requests of this object's life whose path ends so, oldest first, among the last 10000. Those to the
  /// admin paths are not kept.
  std::vector<RequestRecord> requests(const std::string& pathSuffix = {}) const;
  /// How many there were, without a limit.
  std::int64_t requestCount(const std::string& pathSuffix = {}) const;
  /// Waits until that many requests with this end of path have come in, answered or not.
  bool waitForRequests(const std::string& pathSuffix, std::int64_t count,
                       std::chrono::milliseconds timeout) const;

  /// Gives the number under which the fault stands in the list.
  std::uint64_t orderFault(Fault fault);
  /// Takes all faults back, and lets the requests that they hold be answered as usual.
  void clearFaults();
  /// Takes one back; false if it is not in the list.
  bool clearFault(std::uint64_t id);
  std::vector<OrderedFault> faults() const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl;
};

}  // namespace orrelo::devservice

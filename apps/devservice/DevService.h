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
  /// Holds the certificate and the databases; created if missing. Two running services must not share it.
  std::filesystem::path dataDirectory;
  /// The scenario's folder. Empty selects the scenario that comes with the service.
  std::filesystem::path scenarioDirectory = {};
  /// 0 takes a free port at the first start and keeps it for later ones.
  int port = 0;
  /// A fixed time for the scenario to play at. Unset, it follows this machine's clock.
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
/// Thread-safe. Received events, users and tokens can be read while the service runs and after it stopped,
/// and are still there when another instance opens the same data directory. SIGPIPE is ignored in the whole
/// process from the first start on.
class DevService {
 public:
  using EventPredicate = std::function<bool(const std::vector<ReceivedEvent>&)>;

  /// Opens the data directory. Throws std::runtime_error if it cannot be used.
  explicit DevService(const Options& options);
  /// Stops the service.
  ~DevService();
  DevService(const DevService&) = delete;
  DevService& operator=(const DevService&) = delete;

  /// Returns once connections are accepted; does nothing while running. Throws std::runtime_error if the port
  /// is taken.
  void start();
  /// Closes every connection, including those of requests that a fault holds, and returns once all threads of
  /// the service have ended. Takes well under a second. `start` may be called again and reuses the port.
  void stop();
  bool isRunning() const;

  /// The port in use, or the one that the next start takes; 0 before the first start with a free port.
  int port() const;
  /// "https://localhost:<port>", without a slash at the end.
  std::string baseUrl() const;
  /// PEM file of the certificate, for a client to trust as a certificate authority.
  std::filesystem::path certificatePath() const;

  /// The received events, in order of first arrival.
  std::vector<ReceivedEvent> events() const;
  /// The number of distinct events.
  std::int64_t eventCount() const;
  /// The number of deliveries: an event that arrived twice counts twice.
  std::int64_t deliveryCount() const;
  std::vector<KnownUser> users() const;
  std::vector<SavedToken> tokens() const;

  /// Waits until `count` distinct events are stored. Returns false on timeout.
  bool waitForEvents(std::int64_t count, std::chrono::milliseconds timeout) const;
  /// Waits until the predicate holds, and evaluates it at once and after each arrival, on the calling thread.
  /// Returns false on timeout.
  bool waitForEvents(const EventPredicate& predicate, std::chrono::milliseconds timeout) const;

  /// The requests of this object's lifetime whose path ends with `pathSuffix`, oldest first. Only the last
  /// 10000 requests are kept, and none to the admin paths.
  std::vector<RequestRecord> requests(const std::string& pathSuffix = {}) const;
  /// The number of such requests, including those that are no longer kept.
  std::int64_t requestCount(const std::string& pathSuffix = {}) const;
  /// Waits until `count` such requests have arrived, answered or not. Returns false on timeout.
  bool waitForRequests(const std::string& pathSuffix, std::int64_t count,
                       std::chrono::milliseconds timeout) const;

  /// Adds a fault to the list and returns its id.
  std::uint64_t orderFault(Fault fault);
  /// Removes all faults. The requests that they hold are answered as usual.
  void clearFaults();
  /// Removes one fault; false if it is not in the list.
  bool clearFault(std::uint64_t id);
  std::vector<OrderedFault> faults() const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace orrelo::devservice

#pragma once

#include "store/Records.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// One flat event as it came in, already checked.
struct IncomingEvent {
  std::map<std::string, std::string> values;
  /// The event as JSON text.
  std::string json;
};

/// What the events of one request have in common.
struct Delivery {
  std::string appKey;
  std::string path;
  /// Identity headers as a JSON object.
  std::string headers;
  TimePoint arrival;
};

struct DeliveryResult {
  std::int64_t received = 0;
  std::int64_t duplicates = 0;
};

/// An event with the number of its last change, by which a reader asks for what is new.
struct StoredEvent {
  std::int64_t revision = 0;
  std::int64_t id = 0;
  ReceivedEvent event;
};

struct EventPage {
  std::vector<StoredEvent> events;
  /// The last change there is, which may lie beyond those on this page.
  std::int64_t revision = 0;
};

struct StoreCounts {
  std::int64_t events = 0;
  std::int64_t deliveries = 0;
  std::int64_t users = 0;
  std::int64_t tokens = 0;
};

/// Users, tokens and received events in one SQLite file. Thread-safe; failures of the database come as
/// SQLite::Exception.
class EventStore {
 public:
  explicit EventStore(const std::filesystem::path& file);

  /// Stores all or none.
  DeliveryResult add(const std::vector<IncomingEvent>& events, const Delivery& delivery);
  void saveToken(const std::string& appKey, const std::string& userId, const std::string& token,
                 TimePoint now);

  std::vector<ReceivedEvent> events() const;
  /// What changed after that revision, in the order of the changes.
  EventPage changesAfter(std::int64_t revision, int limit) const;
  /// The last changes, in the order of the changes.
  EventPage lastChanges(int limit) const;
  /// Those seen last come first.
  std::vector<KnownUser> users(int limit = -1) const;
  std::vector<SavedToken> tokens(int limit = -1) const;
  StoreCounts counts() const;

  bool waitFor(const std::function<bool()>& satisfied, std::chrono::milliseconds timeout) const;

 private:
  bool addOne(const IncomingEvent& event, const Delivery& delivery);
  void touchUser(const std::string& appKey, const std::string& userId, std::int64_t newEvents, TimePoint now);
  EventPage page(SQLite::Statement& query) const;
  std::int64_t number(const char* sql) const;

  mutable std::mutex mutex;
  mutable std::condition_variable changed;
  mutable SQLite::Database database;
  SQLite::Statement insertEvent;
  SQLite::Statement upsertUser;
  SQLite::Statement upsertToken;
  std::int64_t revision = 0;
  std::int64_t eventCount = 0;
  std::int64_t deliveryCount = 0;
  /// Grows with every commit, so that a waiting thread misses none.
  std::int64_t commits = 0;
};

}  // namespace orrelo::devservice

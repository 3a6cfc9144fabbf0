#pragma once

#include "store/Records.h"
#include "store/TokenBook.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::devservice {

/// A flat event as received, already validated.
struct IncomingEvent {
  std::map<std::string, std::string> values;
  /// The event as JSON text.
  std::string json;
};

/// The data that all events of one request share.
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

/// An event with the revision of its last change, which readers pass to get newer changes.
struct StoredEvent {
  std::int64_t revision = 0;
  std::int64_t id = 0;
  ReceivedEvent event;
};

struct EventPage {
  std::vector<StoredEvent> events;
  /// The store's latest revision, which may be later than those on this page.
  std::int64_t revision = 0;
};

struct StoreCounts {
  std::int64_t events = 0;
  std::int64_t deliveries = 0;
  std::int64_t users = 0;
  std::int64_t tokens = 0;
};

/// Users, tokens and received events in one SQLite file. Thread-safe. Database errors throw
/// SQLite::Exception.
class EventStore {
 public:
  explicit EventStore(const std::filesystem::path& file);

  /// Stores all events or none.
  DeliveryResult add(const std::vector<IncomingEvent>& events, const Delivery& delivery);
  void saveToken(const std::string& appKey, const std::string& userId, const std::string& token,
                 TimePoint now);

  std::vector<ReceivedEvent> events() const;
  /// The events that changed after `revision`, in the order of their changes.
  EventPage changesAfter(std::int64_t revision, int limit) const;
  /// The events that changed last, in the order of their changes.
  EventPage lastChanges(int limit) const;
  /// The last seen first. A negative limit returns all.
  std::vector<KnownUser> users(int limit = -1) const;
  /// The same limits as those of TokenBook.
  std::vector<SavedToken> tokens() const;
  std::pair<std::vector<SavedToken>, std::int64_t> tokensOf(const std::string& appKey,
                                                            const std::string& userId, int limit) const;
  StoreCounts counts() const;

  /// Waits until `satisfied` holds, and evaluates it at once and after each commit of `add`, on the calling
  /// thread. Returns false on timeout.
  bool waitFor(const std::function<bool()>& satisfied, std::chrono::milliseconds timeout) const;

 private:
  bool addOne(const IncomingEvent& event, const Delivery& delivery);
  void touchUser(const std::string& appKey, const std::string& userId, std::int64_t newEvents, TimePoint now);
  EventPage page(SQLite::Statement& query) const;
  std::int64_t number(const char* sql) const;

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  mutable SQLite::Database database_;
  SQLite::Statement insertEvent_;
  SQLite::Statement upsertUser_;
  TokenBook tokens_;
  std::int64_t revision_ = 0;
  std::int64_t eventCount_ = 0;
  std::int64_t deliveryCount_ = 0;
  /// The number of commits, by which a waiting thread notices each of them.
  std::int64_t commits_ = 0;
};

}  // namespace orrelo::devservice

#include "store/EventStore.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace orrelo::devservice {

namespace {

constexpr auto schema = R"sql(
  CREATE TABLE IF NOT EXISTS events(
    id INTEGER PRIMARY KEY,
    event_id TEXT NOT NULL UNIQUE,
    app_key TEXT NOT NULL,
    user_id TEXT,
    event_name TEXT NOT NULL,
    event_time TEXT NOT NULL,
    path TEXT NOT NULL,
    body TEXT NOT NULL,
    headers TEXT NOT NULL,
    deliveries INTEGER NOT NULL DEFAULT 1,
    first_arrival INTEGER NOT NULL,
    last_arrival INTEGER NOT NULL,
    revision INTEGER NOT NULL);
  CREATE INDEX IF NOT EXISTS events_revision ON events(revision);
  CREATE TABLE IF NOT EXISTS users(
    app_key TEXT NOT NULL,
    user_id TEXT NOT NULL,
    events INTEGER NOT NULL,
    first_seen INTEGER NOT NULL,
    last_seen INTEGER NOT NULL,
    PRIMARY KEY(app_key, user_id)) WITHOUT ROWID;
)sql";

constexpr auto insertEventSql = R"sql(
  INSERT INTO events(event_id, app_key, user_id, event_name, event_time, path, body, headers,
                     first_arrival, last_arrival, revision)
  VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?9, ?10)
  ON CONFLICT(event_id) DO UPDATE
    SET deliveries = deliveries + 1, last_arrival = excluded.last_arrival, revision = excluded.revision
  RETURNING deliveries)sql";

constexpr auto upsertUserSql = R"sql(
  INSERT INTO users(app_key, user_id, events, first_seen, last_seen) VALUES(?1, ?2, ?3, ?4, ?4)
  ON CONFLICT DO UPDATE SET events = events + excluded.events, last_seen = excluded.last_seen)sql";

constexpr const char* eventColumns =
    "id, revision, event_id, app_key, user_id, event_name, event_time, path, body, headers, deliveries, "
    "first_arrival, last_arrival";

/// Resets a prepared statement at the end of its use, also when that throws.
class StatementUse {
 public:
  explicit StatementUse(SQLite::Statement& statement) : statement_(statement) {}
  ~StatementUse() {
    statement_.tryReset();
    try {
      statement_.clearBindings();
    } catch (const SQLite::Exception&) {
      // Every binding is set again before the next use.
    }
  }
  StatementUse(const StatementUse&) = delete;
  StatementUse& operator=(const StatementUse&) = delete;

 private:
  SQLite::Statement& statement_;
};

std::int64_t toStored(TimePoint time) {
  return time.time_since_epoch().count();
}
TimePoint fromStored(std::int64_t stored) {
  return TimePoint(std::chrono::milliseconds(stored));
}

std::map<std::string, std::string> parseFlat(const std::string& text) {
  const auto json = nlohmann::json::parse(text, nullptr, false);
  std::map<std::string, std::string> result;
  if (!json.is_object()) return result;
  for (const auto& [key, value] : json.items()) {
    if (value.is_string()) result.emplace(key, value.get<std::string>());
  }
  return result;
}

StoredEvent readEvent(const SQLite::Statement& row) {
  StoredEvent stored;
  stored.id = row.getColumn(0).getInt64();
  stored.revision = row.getColumn(1).getInt64();
  auto& event = stored.event;
  event.eventId = row.getColumn(2).getString();
  event.appKey = row.getColumn(3).getString();
  if (!row.getColumn(4).isNull()) event.userId = row.getColumn(4).getString();
  event.eventName = row.getColumn(5).getString();
  event.eventTime = row.getColumn(6).getString();
  event.path = row.getColumn(7).getString();
  event.values = parseFlat(row.getColumn(8).getString());
  event.headers = parseFlat(row.getColumn(9).getString());
  event.deliveries = row.getColumn(10).getInt64();
  event.firstArrival = fromStored(row.getColumn(11).getInt64());
  event.lastArrival = fromStored(row.getColumn(12).getInt64());
  return stored;
}

SQLite::Database openDatabase(const std::filesystem::path& file) {
  SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 5000);
  database.exec("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;");
  database.exec(schema);
  return database;
}

std::string selectEvents(const char* rest) {
  return std::string("SELECT ") + eventColumns + " FROM events " + rest;
}

}  // namespace

EventStore::EventStore(const std::filesystem::path& file)
    : database_(openDatabase(file)),
      insertEvent_(database_, insertEventSql),
      upsertUser_(database_, upsertUserSql),
      tokens_(database_),
      revision_(number("SELECT coalesce(max(revision), 0) FROM events")),
      eventCount_(number("SELECT count(*) FROM events")),
      deliveryCount_(number("SELECT coalesce(sum(deliveries), 0) FROM events")) {}

std::int64_t EventStore::number(const char* sql) const {
  return database_.execAndGet(sql).getInt64();
}

DeliveryResult EventStore::add(const std::vector<IncomingEvent>& events, const Delivery& delivery) {
  const std::lock_guard lock(mutex_);
  DeliveryResult result;
  const auto revisionBefore = revision_;
  try {
    SQLite::Transaction transaction(database_);
    for (const auto& event : events) {
      ++result.received;
      if (!addOne(event, delivery)) ++result.duplicates;
    }
    transaction.commit();
  } catch (...) {
    revision_ = revisionBefore;
    throw;
  }
  deliveryCount_ += result.received;
  eventCount_ += result.received - result.duplicates;
  ++commits_;
  changed_.notify_all();
  return result;
}

bool EventStore::addOne(const IncomingEvent& event, const Delivery& delivery) {
  const auto user = event.values.find("user_id");
  bool isNew = false;
  {
    const StatementUse use(insertEvent_);
    insertEvent_.bind(1, event.values.at("event_id"));
    insertEvent_.bind(2, delivery.appKey);
    if (user == event.values.end()) {
      insertEvent_.bind(3);
    } else {
      insertEvent_.bind(3, user->second);
    }
    insertEvent_.bind(4, event.values.at("event_name"));
    insertEvent_.bind(5, event.values.at("event_time"));
    insertEvent_.bind(6, delivery.path);
    insertEvent_.bind(7, event.json);
    insertEvent_.bind(8, delivery.headers);
    insertEvent_.bind(9, toStored(delivery.arrival));
    insertEvent_.bind(10, ++revision_);
    isNew = insertEvent_.executeStep() && insertEvent_.getColumn(0).getInt64() == 1;
  }
  if (user != event.values.end()) {
    touchUser(delivery.appKey, user->second, isNew ? 1 : 0, delivery.arrival);
  }
  return isNew;
}

void EventStore::touchUser(const std::string& appKey, const std::string& userId, std::int64_t newEvents,
                           TimePoint now) {
  const StatementUse use(upsertUser_);
  upsertUser_.bind(1, appKey);
  upsertUser_.bind(2, userId);
  upsertUser_.bind(3, newEvents);
  upsertUser_.bind(4, toStored(now));
  upsertUser_.exec();
}

void EventStore::saveToken(const std::string& appKey, const std::string& userId, const std::string& token,
                           TimePoint now) {
  const std::lock_guard lock(mutex_);
  SQLite::Transaction transaction(database_);
  touchUser(appKey, userId, 0, now);
  tokens_.save(appKey, userId, token, now);
  transaction.commit();
}

std::vector<ReceivedEvent> EventStore::events() const {
  const std::lock_guard lock(mutex_);
  SQLite::Statement query(database_, selectEvents("ORDER BY id"));
  std::vector<ReceivedEvent> result;
  while (query.executeStep()) result.push_back(readEvent(query).event);
  return result;
}

EventPage EventStore::page(SQLite::Statement& query) const {
  EventPage result;
  while (query.executeStep()) result.events.push_back(readEvent(query));
  result.revision = revision_;
  return result;
}

EventPage EventStore::changesAfter(std::int64_t after, int limit) const {
  const std::lock_guard lock(mutex_);
  SQLite::Statement query(database_, selectEvents("WHERE revision > ?1 ORDER BY revision LIMIT ?2"));
  query.bind(1, after);
  query.bind(2, limit);
  return page(query);
}

EventPage EventStore::lastChanges(int limit) const {
  const std::lock_guard lock(mutex_);
  SQLite::Statement query(
      database_, "SELECT * FROM (" + selectEvents("ORDER BY revision DESC LIMIT ?1)") + " ORDER BY revision");
  query.bind(1, limit);
  return page(query);
}

std::vector<KnownUser> EventStore::users(int limit) const {
  const std::lock_guard lock(mutex_);
  SQLite::Statement query(database_,
                          "SELECT app_key, user_id, events, first_seen, last_seen FROM users "
                          "ORDER BY last_seen DESC, user_id LIMIT ?1");
  query.bind(1, limit);
  std::vector<KnownUser> result;
  while (query.executeStep()) {
    result.push_back({query.getColumn(0).getString(), query.getColumn(1).getString(),
                      query.getColumn(2).getInt64(), fromStored(query.getColumn(3).getInt64()),
                      fromStored(query.getColumn(4).getInt64())});
  }
  return result;
}

std::vector<SavedToken> EventStore::tokens() const {
  const std::lock_guard lock(mutex_);
  return tokens_.all();
}

std::pair<std::vector<SavedToken>, std::int64_t> EventStore::tokensOf(const std::string& appKey,
                                                                      const std::string& userId,
                                                                      int limit) const {
  const std::lock_guard lock(mutex_);
  return tokens_.latestOf(appKey, userId, limit);
}

StoreCounts EventStore::counts() const {
  const std::lock_guard lock(mutex_);
  return {eventCount_, deliveryCount_, number("SELECT count(*) FROM users"), tokens_.count()};
}

bool EventStore::waitFor(const std::function<bool()>& satisfied, std::chrono::milliseconds timeout) const {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  std::unique_lock lock(mutex_);
  while (true) {
    const auto seen = commits_;
    // The predicate reads this store, so it must run without the lock.
    lock.unlock();
    if (satisfied()) return true;
    lock.lock();
    if (!changed_.wait_until(lock, deadline, [&] { return commits_ != seen; })) return false;
  }
}

}  // namespace orrelo::devservice

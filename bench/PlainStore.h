#pragma once

#include "events/Event.h"
#include "network/RFC3339DateParser.h"
#include "support/TemporaryFolder.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <string>
#include <vector>

namespace orrelo::bench {

/// Saves with one prepared statement, one row per transaction.
class PlainStore {
 public:
  explicit PlainStore(const test::TemporaryFolder& folder)
      : database_((folder.path() / "plain.sqlite").string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE),
        insert_(prepare()) {}

  void save(const Event& event) {
    insert_.reset();
    insert_.bindNoCopy(1, ids_.emplace_back(event.id.text()));
    insert_.bindNoCopy(2, *event.userId);
    insert_.bindNoCopy(3, event.eventName);
    insert_.bindNoCopy(4, RFC3339DateParser::text(event.eventTime));
    insert_.bindNoCopy(5, event.eventValues.begin()->second);
    insert_.exec();
    ids_.clear();
  }

 private:
  SQLite::Statement prepare() {
    database_.exec("PRAGMA journal_mode=WAL");
    database_.exec("PRAGMA synchronous=NORMAL");
    database_.exec(
        "CREATE TABLE events(eventId TEXT, userId TEXT, eventName TEXT, eventTime TEXT, eventValues TEXT)");
    database_.exec("CREATE INDEX events_by_time ON events(eventTime)");
    return {database_, "INSERT INTO events VALUES(?, ?, ?, ?, ?)"};
  }

  SQLite::Database database_;
  SQLite::Statement insert_;
  std::vector<std::string> ids_;
};

}  // namespace orrelo::bench

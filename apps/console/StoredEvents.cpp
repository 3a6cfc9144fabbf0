#include "StoredEvents.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sstream>

namespace orrelo::console {
namespace {

int listStore(const std::filesystem::path& file, std::ostream& out) {
  int count = 0;
  if (!std::filesystem::exists(file)) return count;
  const SQLite::Database database(file.string(), SQLite::OPEN_READONLY, 1000);
  if (!database.tableExists("events")) return count;
  SQLite::Statement rows(database,
                         "SELECT eventId, eventName, userId, eventTime FROM events ORDER BY eventTime");
  while (rows.executeStep()) {
    ++count;
    out << "  " << rows.getColumn(0).getString() << "  " << rows.getColumn(1).getString() << "  user "
        << (rows.isColumnNull(2) ? "-" : rows.getColumn(2).getString()) << "  "
        << rows.getColumn(3).getString() << "\n";
  }
  return count;
}

}  // namespace

std::string storedEvents(const std::filesystem::path& dataDirectory) {
  std::ostringstream out;
  try {
    const int hostCount = listStore(dataDirectory / "OLSCoreDataEvent.sqlite", out);
    const int kitCount = listStore(dataDirectory / "BIEventCoreData.sqlite", out);
    out << "stored: " << hostCount << " of the host's, " << kitCount << " of the kit's";
  } catch (const SQLite::Exception& exception) {
    out << "the stores cannot be read now: " << exception.what();
  }
  return out.str();
}

}  // namespace orrelo::console

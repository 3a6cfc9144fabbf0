#include "StoredEvents.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <array>
#include <fcntl.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

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

std::string storedEventsFromProcess(const char* option, const std::filesystem::path& dataDirectory) {
  auto program = std::filesystem::read_symlink("/proc/self/exe").string();
  std::string name = option;
  std::string folder = dataDirectory.string();
  std::array<char*, 4> arguments{program.data(), name.data(), folder.data(), nullptr};
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return "no pipe";
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  pid_t process = -1;
  const int failure = posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::string text;
  std::array<char, 4096> chunk{};
  for (ssize_t got = 0; (got = read(ends[0], chunk.data(), chunk.size())) > 0;) {
    text.append(chunk.data(), static_cast<std::size_t>(got));
  }
  close(ends[0]);
  if (failure != 0) return "cannot run " + program;
  waitpid(process, nullptr, 0);
  return text;
}

}  // namespace orrelo::console

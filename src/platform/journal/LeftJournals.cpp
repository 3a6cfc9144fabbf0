#include "platform/journal/LeftJournals.h"

#include "base/explain.h"
#include "platform/journal/JournalFile.h"
#include "platform/journal/JournalFormat.h"
#include "platform/store/Files.h"
#include "platform/threads/KitThread.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <iterator>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace orrelo {
namespace {

namespace fs = std::filesystem;

/// More journals than this stay where they are until some are released.
constexpr std::size_t maximumAdopted = 64;
/// What lies behind this in a file is left out.
constexpr std::size_t maximumReadSize = std::size_t{256} * 1024 * 1024;
constexpr std::chrono::hours keepingOfLaterVersions{24};

std::string systemMessage() {
  return std::generic_category().message(errno);
}

/// Opens an own regular file without waiting and without following a link. Negative with `fault` set, or with
/// an empty `fault` if there is no such file.
int openRegular(const fs::path& path, std::string& fault) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return -1;
  if (!S_ISREG(status.st_mode)) {
    fault = "is no regular file";
  } else if (status.st_uid != ::geteuid()) {
    fault = "belongs to another user";
  } else {
    const int descriptor = ::open(path.c_str(), O_RDWR | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
    if (descriptor >= 0) return descriptor;
    if (errno != ENOENT) fault = "cannot be opened (" + systemMessage() + ")";
  }
  return -1;
}

/// The largest size_t for larger files, which a size_t of 32 bits does not count.
std::size_t sizeOf(const struct stat& status) {
  constexpr std::uintmax_t most = std::numeric_limits<std::size_t>::max();
  return static_cast<std::size_t>(std::min(static_cast<std::uintmax_t>(status.st_size), most));
}

bool isNamed(int descriptor, const fs::path& path) {
  const auto identity = FileIdentity::of(descriptor);
  return identity && FileIdentity::of(path) == identity;
}

}  // namespace

/// One look at all journals in the folder.
struct LeftJournals::Pass {
  std::string ownName;
  EventJournal::Adopter adopt;
  fs::path folder;
  std::vector<std::string> names;
  std::size_t othersSize = 0;
};

LeftJournals::LeftJournals(JournalEnvironment environment, std::shared_ptr<OwnJournal> own)
    : environment_(std::move(environment)), own_(std::move(own)) {}

void LeftJournals::takeOver(const std::string& ownName, EventJournal::Adopter adopt) {
  std::erase_if(adopted_,
                [this](auto& entry) { return entry.second.liveCount == 0 && remove(entry.second); });
  auto pass = std::make_shared<Pass>();
  pass->ownName = ownName;
  pass->adopt = std::move(adopt);
  pass->folder = environment_.directories->data();
  pass->names = Files::namesIn(pass->folder);
  std::erase_if(pass->names, [](const auto& name) {
    return !journal::seedOfName(name) && !journal::isTemporaryName(name);
  });
  step(pass);
}

void LeftJournals::step(const std::shared_ptr<Pass>& pass) {
  if (pass->names.empty()) {
    othersSize_ = pass->othersSize;
    return updateSize();
  }
  const auto name = std::move(pass->names.back());
  pass->names.pop_back();
  examine(name, *pass);
  environment_.executor->post([self = shared_from_this(), pass] { self->step(pass); });
}

void LeftJournals::examine(const std::string& name, Pass& pass) {
  const auto path = pass.folder / name;
  const auto seed = journal::seedOfName(name);
  if (!seed) return removeTemporary(path);
  const bool isAdopted = std::any_of(adopted_.begin(), adopted_.end(),
                                     [&](const auto& entry) { return entry.second.path == path; });
  if (name == pass.ownName || isAdopted) return;
  auto left = lock(path, pass.othersSize);
  if (!left) return;
  if (adopted_.size() >= maximumAdopted || adoptedSize() >= EventJournal::maximumLiveSize) {
    pass.othersSize += left->size;
    ::close(left->descriptor);
    return;
  }
  auto content = read(*left, *seed);
  if (!content) {
    note(path, "cannot be read (" + systemMessage() + ")");
    ::close(left->descriptor);
  } else if (content->isLaterVersion) {
    leaveForLaterVersion(*left);
  } else {
    adopt(*std::move(left), *std::move(content), pass.adopt);
  }
}

/// Removes a file that a process had begun to make when it ended.
void LeftJournals::removeTemporary(const fs::path& path) {
  std::string fault;
  const int descriptor = openRegular(path, fault);
  if (!fault.empty()) note(path, fault);
  if (descriptor < 0) return;
  if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && isNamed(descriptor, path)) ::unlink(path.c_str());
  ::close(descriptor);
}

/// nullopt if a living process holds the lock, whose file's size is added to `othersSize`, or if the file is
/// none that can be adopted.
std::optional<LeftJournals::Journal> LeftJournals::lock(const fs::path& path, std::size_t& othersSize) {
  std::string fault;
  Journal left;
  left.path = path;
  left.descriptor = openRegular(path, fault);
  if (!fault.empty()) note(path, fault);
  if (left.descriptor < 0) return std::nullopt;
  struct stat status {};
  const bool isKnown = ::fstat(left.descriptor, &status) == 0;
  left.size = isKnown ? sizeOf(status) : 0;
  const bool isLocked = ::flock(left.descriptor, LOCK_EX | LOCK_NB) == 0;
  if (!isLocked) othersSize += left.size;
  // Its process may have replaced and removed the file between the opening and the locking.
  if (isLocked && isKnown && isNamed(left.descriptor, path)) return left;
  ::close(left.descriptor);
  return std::nullopt;
}

std::optional<JournalContent> LeftJournals::read(const Journal& journal, std::uint64_t seedOfName) {
  const auto source = [&](std::size_t offset, char* to, std::size_t size) -> std::optional<std::size_t> {
    ssize_t count = 0;
    do count = ::pread(journal.descriptor, to, size, static_cast<off_t>(offset));
    while (count < 0 && errno == EINTR);
    if (count < 0) return std::nullopt;
    return static_cast<std::size_t>(count);
  };
  auto content = readJournal(source, std::min(journal.size, maximumReadSize), seedOfName);
  if (content) content->unreadableSize += journal.size - std::min(journal.size, maximumReadSize);
  return content;
}

void LeftJournals::leaveForLaterVersion(const Journal& journal) {
  struct stat status {};
  if (::fstat(journal.descriptor, &status) == 0 &&
      environment_.clock->now() - Date::fromSeconds(status.st_mtime) >= keepingOfLaterVersions) {
    explain(
        ExplanationLevel::warning,
        "A journal of a later version was not taken over for a day and is removed: " + journal.path.string());
    ::unlink(journal.path.c_str());
  } else {
    note(journal.path, "was written by a later version and is left to it for a day");
  }
  ::close(journal.descriptor);
}

void LeftJournals::adopt(Journal journal, JournalContent content, const EventJournal::Adopter& adopt) {
  if (content.unreadableSize > 0) {
    explain(ExplanationLevel::warning,
            std::to_string(content.unreadableSize) + " bytes of a journal are unreadable and left out, " +
                std::to_string(content.live.size()) + " events are kept: " + journal.path.string());
  }
  if (content.live.empty()) {
    if (!remove(journal)) ::close(journal.descriptor);
    return;
  }
  journal.seed = content.seed;
  journal.liveCount = content.live.size();
  auto position = own_->reservePositions(content.live.size());
  const auto first = position;
  std::vector<EventJournal::Adopted> records;
  for (auto& entry : content.live) {
    journal.sequences.emplace_back(entry.sequence);
    records.push_back({position++, std::move(entry.record)});
  }
  adopted_.emplace(first, std::move(journal));
  updateSize();
  runGuarded([&] { adopt(std::move(records)); });
}

void LeftJournals::release(const std::vector<EventJournal::Position>& positions) {
  std::set<EventJournal::Position> changed;
  for (const auto position : positions) {
    const auto next = adopted_.upper_bound(position);
    if (next == adopted_.begin()) continue;
    auto& [first, journal] = *std::prev(next);
    const auto offset = position - first;
    if (offset >= journal.sequences.size()) continue;
    const auto sequence = std::exchange(journal.sequences[static_cast<std::size_t>(offset)], std::nullopt);
    if (!sequence) continue;
    journal.unwritten.add(*sequence, *sequence);
    --journal.liveCount;
    changed.insert(first);
  }
  for (const auto first : changed) {
    auto& journal = adopted_.at(first);
    if (journal.liveCount == 0 && remove(journal)) {
      adopted_.erase(first);
      continue;
    }
    const auto records = journal::releaseRecords(journal.unwritten, journal.seed);
    if (writeOnce(journal.descriptor, records) == static_cast<ssize_t>(records.size()))
      journal.unwritten.clear();
  }
  updateSize();
}

/// Removes the file, then gives up its lock. If the file cannot be removed, it stays locked, so that nobody
/// adopts it once more.
bool LeftJournals::remove(const Journal& journal) {
  if (isNamed(journal.descriptor, journal.path) && ::unlink(journal.path.c_str()) != 0) {
    note(journal.path, "cannot be removed (" + systemMessage() + ")");
    return false;
  }
  ::close(journal.descriptor);
  return true;
}

void LeftJournals::close() {
  for (const auto& [first, journal] : std::exchange(adopted_, {})) ::close(journal.descriptor);
}

std::size_t LeftJournals::adoptedSize() const {
  std::size_t size = 0;
  for (const auto& [first, journal] : adopted_) size += journal.size;
  return size;
}

void LeftJournals::updateSize() {
  std::size_t records = 0;
  for (const auto& [first, journal] : adopted_) records += journal.liveCount;
  const auto size = adoptedSize();
  own_->setOthersSize(othersSize_ + size);
  own_->setAdopted(records, size);
}

/// Logs what keeps a file from being adopted, once for each file.
void LeftJournals::note(const fs::path& path, const std::string& fault) {
  if (!noted_.insert(path).second) return;
  explain(ExplanationLevel::warning, "A journal of events " + fault + " and is left alone: " + path.string());
}

}  // namespace orrelo

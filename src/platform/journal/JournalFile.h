#pragma once

#include <orrelo/platform/Random.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace orrelo {

/// Identifies the file to which a name or a descriptor refers.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;

  /// nullopt if there is no such file. A symbolic link counts as itself.
  static std::optional<FileIdentity> of(const std::filesystem::path& path);
  static std::optional<FileIdentity> of(int descriptor);

  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// Writes with one system call, unless a signal comes before it has written anything. Returns what `write`
/// does.
ssize_t writeOnce(int descriptor, std::string_view bytes);

/// A journal that this process writes. It has two descriptors: the writer, which the threads of the process
/// share, and the keeper, which only tasks of the executor use and close, since that thread may have a table
/// of descriptors of its own. The one that made the file holds its lock until it is closed. A forked child
/// does not inherit a lock that the keeper holds.
///
/// The owner guards the writer with its mutex; the keeper needs none.
class JournalFile {
 public:
  enum class Maker { keeper, writer };

  /// Makes and locks a file under a temporary name. Null if it cannot be made.
  static std::shared_ptr<JournalFile> create(const std::filesystem::path& folder, Random& random,
                                             Maker maker);

  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;

  std::uint64_t seed() const { return seed_; }
  Maker maker() const { return maker_; }
  std::string name() const { return path_.filename().native(); }
  const std::filesystem::path& path() const { return path_; }
  std::size_t size() const { return size_; }

  /// Writes all of `bytes` through the descriptor that made the file, before it is published.
  bool fill(std::string_view bytes);
  /// Waits until what was filled in has reached the disk.
  bool sync();
  /// Opens the writer if the keeper made the file.
  bool openWriter();
  /// Gives the file its lasting name.
  bool publish();

  /// Appends through the writer with one system call; false unless all of it was written.
  bool append(std::string_view bytes);
  /// Whether the writer still refers to this file, which the host may have closed.
  bool hasWriter() const { return isOpen(writer_); }
  void closeWriter() { closeOwn(writer_); }

  /// The same through the keeper, which is opened if it is not open.
  bool appendByKeeper(std::string_view bytes);
  /// Allocates the first part of the file through the keeper, if that has failed before.
  void reserve();
  /// Whether the keeper is open and still holds the lock that it took.
  bool hasKeeper();
  void closeKeeper() { closeOwn(keeper_); }

  /// Whether the name refers to this file, and the file has all its bytes. Any thread.
  bool isWhole() const;
  /// Removes the name, unless it refers to another file by now.
  void remove() const;

 private:
  JournalFile(const std::filesystem::path& folder, std::uint64_t seed);

  /// The outcome of one attempt to make the file.
  enum class Attempt { made, nameTaken, failed };
  Attempt make(Maker maker);
  void allocate(int descriptor);
  bool appendTo(int descriptor, std::string_view bytes);
  bool isOpen(int descriptor) const;
  void closeOwn(int& descriptor) const;

  const std::uint64_t seed_;
  const std::filesystem::path path_;
  const std::filesystem::path temporaryPath_;
  FileIdentity identity_;
  Maker maker_ = Maker::keeper;
  int writer_ = -1;
  int keeper_ = -1;
  bool isReserved_ = false;
  bool isPublished_ = false;
  std::atomic<std::size_t> size_ = 0;
};

}  // namespace orrelo

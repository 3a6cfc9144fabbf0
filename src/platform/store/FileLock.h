#pragma once

#include <filesystem>
#include <memory>

namespace orrelo {

/// An exclusive lock on a file, against other owners in this process and in other processes. The destructor
/// and the end of the process release it. A lock that is taken on a WriterQueue must be released there.
class FileLock {
 public:
  /// Acquires the lock without waiting; creates the file if it is missing. Null if the lock is taken. Throws
  /// a SqliteFailure if the file cannot be opened.
  static std::unique_ptr<FileLock> acquire(const std::filesystem::path& file);

  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  explicit FileLock(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;
};

}  // namespace orrelo

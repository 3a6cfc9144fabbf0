#pragma once

#include <filesystem>
#include <memory>

namespace orrelo {

/// The exclusive lock that a file stands for. It is held as long as this lives, at most until the process
/// ends; meanwhile nobody else gets it, in this process or another.
class FileLock {
 public:
  /// Null where somebody else holds the lock, or where the file cannot be made. Never waits. Any thread.
  static std::unique_ptr<FileLock> acquire(const std::filesystem::path& file);

  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  explicit FileLock(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;
};

}  // namespace orrelo

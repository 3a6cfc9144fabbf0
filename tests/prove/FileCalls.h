#pragma once

#include <filesystem>
#include <string>

namespace orrelo::prove {

/// Watches this process's system calls on files below one folder: counts them, fails one of them, or logs
/// those that change files. Calls of SQLite and of the C++ library are watched too, since a program's own
/// definitions of these functions replace those of the C library. Calls of one thread at a time.
class FileCalls {
 public:
  /// Starts counting. `folder` must be absolute and contain no symbolic links.
  static void watch(const std::filesystem::path& folder);
  /// Fails one call, counted from 1 after `watch`. `variant` selects one of the errors that the call may
  /// have; for a write one variant writes only half of the bytes.
  static void fail(int number, int variant);
  /// Appends each change to `log`, from where ChangeLog reads it.
  static void record(const std::filesystem::path& log);
  /// Appends a note to the log.
  static void note(const std::string& text);

  static int count();
  /// The call that failed, with its file and error; empty if none has failed.
  static std::string failed();
};

}  // namespace orrelo::prove

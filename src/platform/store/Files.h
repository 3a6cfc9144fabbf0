#pragma once

#include "base/Error.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

/// Errors of file operations, in the domain "FileError"; the message is the system's.
enum class FileError { directory, open, read, write, remove };
Error makeError(FileError error, std::string message);

/// Reads and writes whole files. Any thread.
struct Files {
  /// Creates the folder, accessible only to the user, and its parents. Succeeds if it already exists.
  static std::optional<Error> makeFolder(const std::filesystem::path& folder);
  /// Throws FileError `open` if the file cannot be opened or is not a regular file, and `read` if it is
  /// larger than `maximumSize` or cannot be read.
  static std::string read(const std::filesystem::path& file, std::size_t maximumSize);
  /// Replaces the file's content. Not atomic: a crash may leave a part of the new content.
  static std::optional<Error> write(const std::filesystem::path& file, std::string_view bytes);
  /// Removes a folder and its content. Fails if there is no folder.
  static std::optional<Error> removeFolder(const std::filesystem::path& folder);
  static bool exists(const std::string& file);
  /// The names of the folder's entries; those that can be read if listing the folder fails.
  static std::vector<std::string> namesIn(const std::filesystem::path& folder);
};

}  // namespace orrelo

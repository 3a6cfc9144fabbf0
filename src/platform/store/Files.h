#pragma once

#include "base/Error.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

/// Errors of plain files, in the domain "FileError"; the message is the system's.
enum class FileError { directory, open, read, write, remove };
Error makeError(FileError error, std::string message);

/// Whole files, read and written at once. Any thread.
struct Files {
  /// Makes the folder and those above it, the user's alone to read; one that is there is as good.
  static std::optional<Error> makeFolder(const std::filesystem::path& folder);
  /// Throws `FileError` `open`, for what is no plain file too, or `read`, for what is larger as well.
  static std::string read(const std::filesystem::path& file, std::size_t maximumSize);
  /// Replaces what the file held; a crash in between leaves a part of it.
  static std::optional<Error> write(const std::filesystem::path& file, std::string_view bytes);
  /// Removes a folder with all that it holds. An error where there is none.
  static std::optional<Error> removeFolder(const std::filesystem::path& folder);
  static bool exists(const std::string& file);
  /// The names of the folder's entries, as far as the folder can be read.
  static std::vector<std::string> namesIn(const std::filesystem::path& folder);
};

}  // namespace orrelo

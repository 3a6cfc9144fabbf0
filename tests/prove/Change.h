#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace orrelo::prove {

/// A change of a file, in the order in which the process has made it.
struct Change {
  enum class Kind : std::uint8_t { create, write, resize, sync, link, unlink, rename, makeFolder, note };

  Kind kind = Kind::note;
  /// The file's inode number, which a later file may have again after `create`.
  std::uint64_t inode = 0;
  /// The position of a write, or the new size.
  std::uint64_t offset = 0;
  std::string path = {};
  std::string newPath = {};
  /// The bytes of a write, or the text of a note.
  std::string bytes = {};

  std::string encoded() const;
  static std::vector<Change> read(const std::filesystem::path& log);
};

}  // namespace orrelo::prove

#pragma once

#include "prove/Change.h"

#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace orrelo::prove {

/// A folder as a disk holds it: what was synced, and the later changes, which a power cut may undo.
///
/// The model is that of a journaling file system without ordered data: names change in order, each sync keeps
/// the earlier changes of names, and each page of 4096 bytes reaches the disk on its own.
class Disk {
 public:
  explicit Disk(std::filesystem::path folder) : folder_(std::move(folder)) {}

  void apply(const Change& change);
  /// Writes everything back, as the system does with changes that are old enough.
  void sync();

  /// Writes the folder to `target` as it would be without a power cut.
  void writeWhole(const std::filesystem::path& target) const;
  /// The same after a power cut. About `kept` (0 to 1) of what was not synced is still there.
  void writeCut(const std::filesystem::path& target, double kept, std::mt19937& random) const;

 private:
  struct File {
    std::string synced;
    std::vector<Change> pending;

    std::string whole() const;
    std::string cut(double kept, std::mt19937& random) const;
  };
  using Names = std::map<std::string, std::shared_ptr<File>>;

  void applyName(Names& names, const Change& change, const std::shared_ptr<File>& file) const;
  void write(const std::filesystem::path& target, const std::string& path, const std::string& bytes) const;

  std::filesystem::path folder_;
  std::map<std::uint64_t, std::shared_ptr<File>> inodes_;
  Names synced_;
  std::vector<std::pair<Change, std::shared_ptr<File>>> pending_;
};

}  // namespace orrelo::prove

#include "prove/PowerCut.h"

#include <algorithm>
#include <fstream>

namespace orrelo::prove {
namespace {

using Kind = Change::Kind;
constexpr std::size_t pageSize = 4096;

bool happens(double probability, std::mt19937& random) {
  return std::uniform_real_distribution(0.0, 1.0)(random) < probability;
}

/// How many of `count` changes, from the first one on, have reached the disk.
std::size_t reached(std::size_t count, double kept, std::mt19937& random) {
  if (happens(kept, random)) return count;
  return kept == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, count)(random);
}

void put(std::string& file, std::size_t at, const char* bytes, std::size_t size) {
  if (file.size() < at + size) file.resize(at + size);
  file.replace(at, size, bytes, size);
}

}  // namespace

std::string Disk::File::whole() const {
  auto file = synced;
  for (const auto& change : pending) {
    if (change.kind == Kind::resize) {
      file.resize(change.offset);
    } else {
      put(file, change.offset, change.bytes.data(), change.bytes.size());
    }
  }
  return file;
}

std::string Disk::File::cut(double kept, std::mt19937& random) const {
  // The sizes that the file has had since it was synced; one of them is on the disk.
  std::vector<std::size_t> sizes{synced.size()};
  std::map<std::size_t, std::size_t> writes;  // by page
  for (const auto& change : pending) {
    if (change.kind == Kind::resize) {
      sizes.push_back(change.offset);
      continue;
    }
    const auto end = change.offset + change.bytes.size();
    for (auto page = change.offset / pageSize; page * pageSize < end; ++page) ++writes[page];
    sizes.push_back(std::max<std::size_t>(sizes.back(), end));
  }
  const auto lastSize = reached(sizes.size() - 1, kept, random);
  for (auto& [page, count] : writes) count = reached(count, kept, random);

  auto file = synced;
  std::size_t number = 0;
  for (const auto& change : pending) {
    ++number;
    if (change.kind == Kind::resize) {
      if (number <= lastSize) file.resize(change.offset);
      continue;
    }
    const auto end = change.offset + change.bytes.size();
    for (auto page = change.offset / pageSize; page * pageSize < end; ++page) {
      if (writes[page] == 0) continue;
      --writes[page];
      const auto from = std::max<std::size_t>(page * pageSize, change.offset);
      const auto to = std::min<std::size_t>((page + 1) * pageSize, end);
      put(file, from, change.bytes.data() + (from - change.offset), to - from);
    }
  }
  file.resize(sizes[lastSize]);
  return file;
}

void Disk::apply(const Change& change) {
  switch (change.kind) {
    case Kind::create:
      inodes_[change.inode] = std::make_shared<File>();
      pending_.emplace_back(change, inodes_[change.inode]);
      break;
    case Kind::write:
    case Kind::resize:
      inodes_.at(change.inode)->pending.push_back(change);
      break;
    case Kind::sync:
      for (const auto& [name, file] : pending_) applyName(synced_, name, file);
      pending_.clear();
      if (const auto found = inodes_.find(change.inode); found != inodes_.end()) {  // else a folder
        found->second->synced = found->second->whole();
        found->second->pending.clear();
      }
      break;
    case Kind::link:
      pending_.emplace_back(change, inodes_.at(change.inode));
      break;
    case Kind::unlink:
    case Kind::rename:
    case Kind::makeFolder:
      pending_.emplace_back(change, nullptr);
      break;
    case Kind::note:
      break;
  }
}

void Disk::sync() {
  apply({.kind = Kind::sync});
  for (const auto& [inode, file] : inodes_) apply({.kind = Kind::sync, .inode = inode});
}

void Disk::applyName(Names& names, const Change& change, const std::shared_ptr<File>& file) const {
  if (change.kind == Kind::create && !change.path.empty()) names[change.path] = file;
  if (change.kind == Kind::link) names[change.newPath] = file;
  if (change.kind == Kind::unlink) names.erase(change.path);
  if (change.kind != Kind::rename) return;
  const auto found = names.find(change.path);
  if (found == names.end()) return;  // a file that is not recorded
  names[change.newPath] = found->second;
  names.erase(change.path);
}

void Disk::write(const std::filesystem::path& target, const std::string& path,
                 const std::string& bytes) const {
  const auto file = target / std::filesystem::path(path).lexically_relative(folder_);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
  using std::filesystem::perms;
  std::filesystem::permissions(file, perms::owner_read | perms::owner_write);
}

void Disk::writeWhole(const std::filesystem::path& target) const {
  auto names = synced_;
  for (const auto& [change, file] : pending_) applyName(names, change, file);
  for (const auto& [path, file] : names) write(target, path, file->whole());
}

void Disk::writeCut(const std::filesystem::path& target, double kept, std::mt19937& random) const {
  auto names = synced_;
  const auto count = reached(pending_.size(), kept, random);
  for (std::size_t i = 0; i < count; ++i) applyName(names, pending_[i].first, pending_[i].second);
  for (const auto& [path, file] : names) write(target, path, file->cut(kept, random));
}

}  // namespace orrelo::prove

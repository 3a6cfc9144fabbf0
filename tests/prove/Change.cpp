#include "prove/Change.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace orrelo::prove {
namespace {

template <class Number>
void put(std::string& to, Number number) {
  to.append(reinterpret_cast<const char*>(&number), sizeof(number));
}

void putText(std::string& to, const std::string& text) {
  put(to, text.size());
  to += text;
}

template <class Number>
Number take(const char*& from) {
  Number number{};
  std::memcpy(&number, from, sizeof(number));
  from += sizeof(number);
  return number;
}

std::string takeText(const char*& from) {
  const auto size = take<std::size_t>(from);
  from += size;
  return {from - size, size};
}

}  // namespace

std::string Change::encoded() const {
  std::string text;
  put(text, kind);
  put(text, inode);
  put(text, offset);
  putText(text, path);
  putText(text, newPath);
  putText(text, bytes);
  return text;
}

std::vector<Change> Change::read(const std::filesystem::path& log) {
  std::ifstream file(log, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  std::vector<Change> changes;
  for (const char* at = text.data(); at < text.data() + text.size();) {
    Change change;
    change.kind = take<Kind>(at);
    change.inode = take<std::uint64_t>(at);
    change.offset = take<std::uint64_t>(at);
    change.path = takeText(at);
    change.newPath = takeText(at);
    change.bytes = takeText(at);
    changes.push_back(std::move(change));
  }
  return changes;
}

}  // namespace orrelo::prove

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orrelo {

/// What a cache knows a text by: its MD5 in lower-case hexadecimal, which names the file as well. Digest and
/// hash are computed once, here.
class WrappedKey {
 public:
  WrappedKey(std::string_view text);
  WrappedKey(const std::string& text) : WrappedKey(std::string_view(text)) {}
  WrappedKey(const char* text) : WrappedKey(std::string_view(text)) {}

  const std::string& key() const { return key_; }
  std::size_t hash() const { return hash_; }

  friend bool operator==(const WrappedKey& a, const WrappedKey& b) { return a.key_ == b.key_; }

 private:
  std::string key_;
  std::size_t hash_;
};

}  // namespace orrelo

template <>
struct std::hash<orrelo::WrappedKey> {
  std::size_t operator()(const orrelo::WrappedKey& key) const noexcept { return key.hash(); }
};

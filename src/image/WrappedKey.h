#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orrelo {

/// A cache key: the MD5 digest of a text in lower-case hexadecimal, which is also the name of the file.
/// Digest and hash are computed once, in the constructor.
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

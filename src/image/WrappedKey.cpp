#include "image/WrappedKey.h"

#include "base/Ascii.h"
#include "platform/store/FileNames.h"

#include <array>
#include <memory>
#include <openssl/evp.h>

namespace orrelo {
namespace {

// The digest only names files and has no security purpose, so it is also allowed in FIPS mode.
const EVP_MD* algorithm() {
  static const auto* const algorithm = EVP_MD_fetch(nullptr, "MD5", "-fips");
  return algorithm;
}

std::string md5(std::string_view text) {
  // Reused, since creating a context costs as much as computing a digest.
  thread_local const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(),
                                                                                     &EVP_MD_CTX_free);
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned int size = 0;
  if (!context || EVP_DigestInit_ex(context.get(), algorithm(), nullptr) != 1 ||
      EVP_DigestUpdate(context.get(), text.data(), text.size()) != 1 ||
      EVP_DigestFinal_ex(context.get(), bytes.data(), &size) != 1) {
    return encodedFileName(text);  // the fallback only has to be a unique file name
  }
  std::string hex;
  hex.reserve(std::size_t{2} * size);
  for (std::size_t i = 0; i < size; ++i) ascii::appendHex(hex, bytes[i], ascii::lowerHexDigits);
  return hex;
}

/// Digests that a thread has computed, one for each value of a short hash. A page asks for the same URLs
/// whenever it is shown.
class RecentDigests {
 public:
  const std::string& digest(std::string_view text) {
    auto& entry = entries_[std::hash<std::string_view>()(text) % entries_.size()];
    if (entry.digest.empty() || entry.text != text) entry = Entry{std::string(text), md5(text)};
    return entry.digest;
  }

 private:
  struct Entry {
    std::string text;
    std::string digest;
  };
  std::array<Entry, 64> entries_;
};

std::string recentDigest(std::string_view text) {
  constexpr std::size_t longest = 512;  // which bounds the memory of a thread
  if (text.size() > longest) return md5(text);
  thread_local const auto recent = std::make_unique<RecentDigests>();
  return recent->digest(text);
}

}  // namespace

WrappedKey::WrappedKey(std::string_view text)
    : key_(recentDigest(text)), hash_(std::hash<std::string>()(key_)) {}

}  // namespace orrelo

#include "admin/AdminPage.h"

#include <array>
#include <openssl/evp.h>
#include <openssl/sha.h>
#include <string_view>

namespace orrelo::devservice {

namespace {

/// The hash of the text between two tags, as a source of a content security policy.
std::string hashOf(std::string_view page, std::string_view openingTag, std::string_view closingTag) {
  const auto start = page.find(openingTag) + openingTag.size();
  const auto content = page.substr(start, page.find(closingTag, start) - start);
  std::array<unsigned char, SHA256_DIGEST_LENGTH> digest{};
  SHA256(reinterpret_cast<const unsigned char*>(content.data()), content.size(), digest.data());
  std::array<unsigned char, 4 * ((SHA256_DIGEST_LENGTH + 2) / 3) + 1> text{};
  EVP_EncodeBlock(text.data(), digest.data(), static_cast<int>(digest.size()));
  return "'sha256-" + std::string(reinterpret_cast<const char*>(text.data())) + "'";
}

}  // namespace

std::string AdminPage::html() {
  return embeddedAdminPage;
}

const std::string& AdminPage::contentSecurityPolicy() {
  static const std::string policy = "default-src 'none'; connect-src 'self'; img-src data:; script-src " +
                                    hashOf(embeddedAdminPage, "<script>", "</script>") + "; style-src " +
                                    hashOf(embeddedAdminPage, "<style>", "</style>") +
                                    "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";
  return policy;
}

}  // namespace orrelo::devservice

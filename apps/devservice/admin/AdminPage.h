#pragma once

#include <string>

namespace orrelo::devservice {

/// The admin page, embedded at build time from the files in `admin/`.
class AdminPage {
 public:
  static std::string html();
  /// Allows the page's own script and style by their hashes, and nothing else.
  static const std::string& contentSecurityPolicy();
};

/// Defined in the source that EmbedAdminPage.cmake generates.
extern const char* const embeddedAdminPage;

}  // namespace orrelo::devservice

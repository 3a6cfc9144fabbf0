#pragma once

#include <string>

namespace orrelo::devservice {

/// The admin page, as embedded at build time from the files in `admin/`.
class AdminPage {
 public:
  static std::string html();
  /// Allows the page's own script and style by their hashes, and nothing else.
  static const std::string& contentSecurityPolicy();
};

/// Defined in the generated file.
extern const char* const embeddedAdminPage;

}  // namespace orrelo::devservice

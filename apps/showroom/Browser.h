#pragma once

#include <filesystem>

namespace orrelo::showroom {

/// The browser engine of the showroom's web pages. Does nothing if the showroom is built without one.
struct Browser {
  /// Must be called before the application object is created.
  static void initialize();
  /// Lets the engine accept the key of this self-signed certificate. It would otherwise log that nobody
  /// vouches for it, before it asks the page. Must be called before the first web page.
  static void accept(const std::filesystem::path& certificateFile);
};

}  // namespace orrelo::showroom

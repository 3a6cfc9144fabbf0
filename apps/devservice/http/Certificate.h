#pragma once

#include <filesystem>

namespace orrelo::devservice {

/// The service's self-signed certificate and its key, as PEM files.
struct Certificate {
  std::filesystem::path certificateFile;
  std::filesystem::path keyFile;

  /// Loads the pair from this directory, or creates one if there is none, it has expired, or key and
  /// certificate do not match. Throws std::runtime_error.
  static Certificate loadOrCreate(const std::filesystem::path& directory);
};

}  // namespace orrelo::devservice

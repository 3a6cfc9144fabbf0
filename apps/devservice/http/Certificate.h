#pragma once

#include <filesystem>

namespace orrelo::devservice {

/// The service's self-signed certificate and its key, as PEM files.
struct Certificate {
  std::filesystem::path certificateFile;
  std::filesystem::path keyFile;

  /// Takes the pair in this directory, or makes a new one where there is none, it has expired, or its halves
  /// do not belong together. Throws std::runtime_error.
  static Certificate loadOrCreate(const std::filesystem::path& directory);
};

}  // namespace orrelo::devservice

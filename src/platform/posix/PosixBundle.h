#pragma once

#include <orrelo/Platform.h>

#include <map>
#include <memory>
#include <string>

namespace orrelo {

/// An information dictionary in memory.
class PosixBundle final : public Bundle {
 public:
  using Entries = std::map<std::string, std::string, std::less<>>;

  explicit PosixBundle(Entries entries) : entries_(std::move(entries)) {}

  /// The application's dictionary; entries that the host leaves empty are absent.
  static std::shared_ptr<Bundle> main(const HostApplication& host);
  /// The kit's own dictionary.
  static std::shared_ptr<Bundle> kit();

  bool hasInfoDictionary() const override { return true; }
  std::optional<std::string> info(std::string_view key) const override;

 private:
  Entries entries_;
};

/// The application's bundle identifier, or the executable's name if it is empty.
std::string bundleIdentifier(const HostApplication& host);

}  // namespace orrelo

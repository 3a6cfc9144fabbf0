#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// A folder of plain files that defines what the service answers. Each call reads the files anew, so that an
/// edit takes effect at once.
class Scenario {
 public:
  using Moment = std::chrono::system_clock::time_point;

  /// `now` fixes the scenario's time. Unset, it follows this machine's clock.
  explicit Scenario(std::filesystem::path directory, std::optional<Moment> now = {});

  Moment now() const { return fixedNow_.value_or(std::chrono::system_clock::now()); }
  const std::filesystem::path& directory() const { return root_; }
  /// The bytes of `apps/<appKey>/config.json`, else of `config.json`; absent if neither can be read.
  std::optional<std::string> config(const std::string& appKey) const;
  /// The names of the files in `apps/<appKey>/campaigns`, else in `campaigns`, sorted and without ".json".
  std::vector<std::string> campaigns(const std::string& appKey) const;
  /// The bytes of `campaigns/<id>.json`, looked up like `config`.
  std::optional<std::string> campaign(const std::string& appKey, const std::string& id) const;
  /// The bytes of `wallet.json`, what a new user begins with, looked up like `config`.
  std::optional<std::string> wallet(const std::string& appKey) const;
  /// The bytes of `fab.json`, the look of the floating button, looked up like `config`.
  std::optional<std::string> floatingButton(const std::string& appKey) const;
  /// The bytes of `messages.json`, the messages that a client shows over its host's page, looked up like
  /// `config`.
  std::optional<std::string> messages(const std::string& appKey) const;
  /// The bytes of `lookup.json`, the app store's reply to a lookup of the application.
  std::optional<std::string> lookup() const;
  /// The bytes of a file in `images`.
  std::optional<std::string> image(const std::string& name) const;
  /// The bytes of a file in `pages`.
  std::optional<std::string> page(const std::string& name) const;

 private:
  /// The app's own file of this name, else the common one.
  std::optional<std::string> read(const std::string& appKey, const std::string& name) const;

  std::filesystem::path root_;
  std::optional<Moment> fixedNow_;
};

}  // namespace orrelo::devservice

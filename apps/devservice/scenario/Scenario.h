#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// A folder of plain files that says what the service answers. Every question reads the files anew, so that
/// an edit acts at once.
class Scenario {
 public:
  using Moment = std::chrono::system_clock::time_point;

  /// Without `now` it is played by this machine's clock.
  explicit Scenario(std::filesystem::path directory, std::optional<Moment> now = {});

  Moment now() const { return fixedNow.value_or(std::chrono::system_clock::now()); }
  const std::filesystem::path& directory() const { return root; }
  /// The bytes of `apps/<appKey>/config.json`, else of `config.json`; absent if neither can be read.
  std::optional<std::string> config(const std::string& appKey) const;
  /// The names of the files in `apps/<appKey>/campaigns`, else in `campaigns`, sorted and without ".json".
  std::vector<std::string> campaigns(const std::string& appKey) const;
  /// The bytes of `campaigns/<id>.json`, as for `config`.
  std::optional<std::string> campaign(const std::string& appKey, const std::string& id) const;
  /// What the store says of an application: the bytes of `lookup.json`.
  std::optional<std::string> lookup() const;
  /// The bytes of a file in `images`.
  std::optional<std::string> image(const std::string& name) const;
  /// The bytes of a file in `pages`.
  std::optional<std::string> page(const std::string& name) const;

 private:
  /// The app's own file of this name, else the common one.
  std::optional<std::string> read(const std::string& appKey, const std::string& name) const;

  std::filesystem::path root;
  std::optional<Moment> fixedNow;
};

}  // namespace orrelo::devservice

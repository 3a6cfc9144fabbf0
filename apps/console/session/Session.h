#pragma once

#include "ConsoleProcess.h"
#include "DevService.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orrelo::console {

/// A user's day, played step by step: events while the service answers, events while it does not, the death
/// of the application, and what arrives in the end. A step that does not end as it must throws
/// std::runtime_error.
class Session {
 public:
  explicit Session(const std::filesystem::path& folder);

  void play();

 private:
  void online();
  void offline();
  void killed();
  void restarted();
  void accounted();

  std::unique_ptr<ConsoleProcess> launch() const;
  /// The lines of the stored events once there are so many.
  std::vector<std::string> waitForStored(std::size_t count);
  void step(const std::string& what);

  std::filesystem::path folder_;
  devservice::DevService service_;
  std::unique_ptr<ConsoleProcess> console_;
  /// The ids that the store had when the console was killed.
  std::set<std::string> storedIds_;
  int steps_ = 0;
};

}  // namespace orrelo::console

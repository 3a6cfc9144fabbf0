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

/// A scripted session: events while the service answers, events while it does not, an application that is
/// killed and restarted, and a check of the events that arrived. A step that fails throws std::runtime_error.
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
  /// Waits until the stores hold `count` events and returns the line of each.
  std::vector<std::string> waitForStored(std::size_t count);
  void step(const std::string& what, const std::string& byHand);

  std::filesystem::path folder_;
  devservice::DevService service_;
  std::unique_ptr<ConsoleProcess> console_;
  /// The ids of the events that were stored when the console was killed.
  std::set<std::string> storedIds_;
  int steps_ = 0;
};

}  // namespace orrelo::console

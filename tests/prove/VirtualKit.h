#pragma once

#include "support/Twins.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orrelo::prove {

/// The kit with its real files in virtual time: one thread, a scripted service, the same order of system
/// calls in every run. One in a process.
class VirtualKit {
 public:
  /// Starts the kit on the folder, with the clock at `start` seconds of the script.
  VirtualKit(const std::filesystem::path& folder, int start);

  /// Reports an event and writes "told <number>", or "memory <number>" if a file has failed meanwhile.
  void report(const std::string& number, const std::string& text = "text");
  void run(std::chrono::microseconds span) { loop->runFor(span); }

  std::shared_ptr<test::ManualClock> clock;
  std::shared_ptr<test::ManualLoop> loop;
  std::shared_ptr<test::ScriptedURLSession> session = std::make_shared<test::ScriptedURLSession>();
  /// The service's answers. Accepted events are written as "sent <number> <id>".
  int configStatus = 200;
  int eventStatus = 200;
  /// Called for each accepted event instead of writing it.
  std::function<void(const std::string& number, const std::string& id)> onSent;

 private:
  std::optional<URLSessionResult> answer(const URLRequest& request);
};

/// Writes a line to standard output in one call.
void writeLine(const std::string& line);

struct Ended {
  /// As of `waitpid`.
  int status = 0;
  std::string output;

  bool isWell() const { return status == 0; }
};

/// Runs `work` in a forked child that writes its standard error to `errors`, and that dies after 60 seconds.
/// The child ends without running handlers when `work` returns, so that nothing waits for the kit.
Ended runInChild(const std::filesystem::path& errors, const std::function<void()>& work);

}  // namespace orrelo::prove

#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orrelo::console {

/// Runs the console as a child process with piped input and output. Failures throw std::runtime_error.
class ConsoleProcess {
 public:
  explicit ConsoleProcess(const std::vector<std::string>& options);
  /// Kills it if it still runs.
  ~ConsoleProcess();
  ConsoleProcess(const ConsoleProcess&) = delete;
  ConsoleProcess& operator=(const ConsoleProcess&) = delete;

  /// Sends one command and returns the lines of its answer, without the closing "ok".
  std::vector<std::string> command(const std::string& line);
  /// Sends SIGKILL and returns once the process is gone.
  void kill();
  /// Sends the command to quit and returns the exit status, or -1 if a signal ended the process.
  int quit();

 private:
  std::string readLine();
  int wait();

  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::string pending_;
};

}  // namespace orrelo::console

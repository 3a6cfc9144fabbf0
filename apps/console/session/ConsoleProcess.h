#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orrelo::console {

/// The console as a process of its own, with its input and output in hand. Whatever goes wrong throws
/// std::runtime_error.
class ConsoleProcess {
 public:
  explicit ConsoleProcess(const std::vector<std::string>& options);
  /// Kills it if it still runs.
  ~ConsoleProcess();
  ConsoleProcess(const ConsoleProcess&) = delete;
  ConsoleProcess& operator=(const ConsoleProcess&) = delete;

  /// Sends one command and gives the lines that it answers with, without the closing "ok".
  std::vector<std::string> command(const std::string& line);
  /// SIGKILL; returns when the process is gone.
  void kill();
  /// Asks it to end, and returns its exit status.
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

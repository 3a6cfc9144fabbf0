#pragma once

#include <array>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

extern char** environ;

namespace orrelo::test {

/// Runs a program and reads its output; the destructor kills it.
class Program {
 public:
  explicit Program(std::vector<std::string> command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    std::vector<char*> arguments;
    for (auto& word : command) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int failure = posix_spawnp(&pid_, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    output_ = ends[0];
    if (failure != 0) throw std::runtime_error("cannot run " + command[0]);
    reader_ = std::thread([this] { readAll(); });
  }
  ~Program() {
    end();
    reader_.join();
    close(output_);
  }

  /// Waits for its end; returns the status of `waitpid`.
  int wait() {
    int status = 0;
    waitpid(std::exchange(pid_, -1), &status, 0);
    return status;
  }
  void end() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    wait();
  }
  /// Its output so far; waits until it holds `part` `count` times, has ended, or half a minute has passed.
  std::string written(const std::string& part, int count = 1) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(30), [&] {
      int found = 0;
      for (auto at = text_.find(part); at != std::string::npos; at = text_.find(part, at + 1)) ++found;
      return ended_ || found >= count;
    });
    return text_;
  }
  /// Its whole output; waits for its end.
  std::string output() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ended_; });
    return text_;
  }

 private:
  void readAll() {
    std::array<char, 4096> chunk{};
    for (ssize_t got = 0; (got = read(output_, chunk.data(), chunk.size())) > 0;) {
      const std::lock_guard lock(mutex_);
      text_.append(chunk.data(), static_cast<std::size_t>(got));
      changed_.notify_all();
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
  }

  pid_t pid_ = -1;
  int output_ = -1;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string text_;
  bool ended_ = false;
  std::thread reader_;
};

}  // namespace orrelo::test

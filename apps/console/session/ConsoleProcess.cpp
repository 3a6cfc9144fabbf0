#include "ConsoleProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace orrelo::console {
namespace {

constexpr int answerTimeoutMillis = 20'000;

}  // namespace

ConsoleProcess::ConsoleProcess(const std::vector<std::string>& options) {
  std::array<int, 2> toChild{};
  std::array<int, 2> fromChild{};
  if (pipe2(toChild.data(), O_CLOEXEC) != 0 || pipe2(fromChild.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error(std::string("pipe: ") + std::strerror(errno));
  }
  std::vector<std::string> words{ORRELO_CONSOLE};
  words.insert(words.end(), options.begin(), options.end());
  std::vector<char*> arguments;
  for (auto& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  pid_ = fork();
  if (pid_ < 0) throw std::runtime_error(std::string("fork: ") + std::strerror(errno));
  if (pid_ == 0) {
    dup2(toChild[0], STDIN_FILENO);
    dup2(fromChild[1], STDOUT_FILENO);
    execv(arguments.front(), arguments.data());
    _exit(127);
  }
  close(toChild[0]);
  close(fromChild[1]);
  input_ = toChild[1];
  output_ = fromChild[0];
  readLine();  // "ready"
}

ConsoleProcess::~ConsoleProcess() {
  kill();
  close(input_);
  close(output_);
}

std::vector<std::string> ConsoleProcess::command(const std::string& line) {
  const auto text = line + "\n";
  if (write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error("the console does not listen");
  }
  std::vector<std::string> answer;
  while (true) {
    auto next = readLine();
    if (next.starts_with("ok ")) return answer;
    if (next.starts_with("no: ")) throw std::runtime_error("the console refused \"" + line + "\": " + next);
    answer.push_back(std::move(next));
  }
}

std::string ConsoleProcess::readLine() {
  while (true) {
    if (const auto end = pending_.find('\n'); end != std::string::npos) {
      auto line = pending_.substr(0, end);
      pending_.erase(0, end + 1);
      return line;
    }
    pollfd ready{output_, POLLIN, 0};
    if (poll(&ready, 1, answerTimeoutMillis) <= 0) throw std::runtime_error("the console does not answer");
    std::array<char, 4096> bytes{};
    const auto count = read(output_, bytes.data(), bytes.size());
    if (count <= 0) throw std::runtime_error("the console is gone");
    pending_.append(bytes.data(), static_cast<std::size_t>(count));
  }
}

void ConsoleProcess::kill() {
  if (pid_ < 0) return;
  ::kill(pid_, SIGKILL);
  wait();
}

int ConsoleProcess::quit() {
  command("quit");
  return wait();
}

int ConsoleProcess::wait() {
  int status = 0;
  waitpid(pid_, &status, 0);
  pid_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace orrelo::console

#include "DevService.h"

#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <signal.h>
#include <string>
#include <string_view>
#include <variant>

namespace {

using orrelo::devservice::DevService;
using orrelo::devservice::Options;

constexpr int defaultPort = 9443;

constexpr std::string_view help = R"(Usage: orrelo-devservice [--port N] [--data DIR] [--scenario DIR]

Serves campaigns over HTTPS on this machine, and shows what arrives on a page at its address.

  --port N        port on 127.0.0.1 (9443; 0 takes a free one)
  --data DIR      certificate and database, made if missing
                  ($XDG_DATA_HOME/orrelo-devservice, or ~/.local/share/orrelo-devservice)
  --scenario DIR  what to answer (the scenario that comes with the service)
  --help          this text
)";

std::filesystem::path defaultDataDirectory() {
  if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') {
    return std::filesystem::path(data) / "orrelo-devservice";
  }
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
    return std::filesystem::path(home) / ".local/share/orrelo-devservice";
  }
  return "orrelo-devservice-data";
}

std::optional<int> toPort(std::string_view text) {
  int port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc{} || end != text.data() + text.size() || port < 0 || port > 65535)
    return std::nullopt;
  return port;
}

/// The options, or the exit code if there is nothing to run.
std::variant<Options, int> parse(int argc, char** argv) {
  Options options{.dataDirectory = defaultDataDirectory(), .scenarioDirectory = {}, .port = defaultPort};
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    if (name == "--help") {
      std::cout << help;
      return EXIT_SUCCESS;
    }
    const char* value = i + 1 < argc ? argv[++i] : nullptr;
    const auto port = value != nullptr ? toPort(value) : std::nullopt;
    if (name == "--port" && port) {
      options.port = *port;
    } else if (name == "--data" && value != nullptr) {
      options.dataDirectory = value;
    } else if (name == "--scenario" && value != nullptr) {
      options.scenarioDirectory = value;
    } else {
      std::cerr << "orrelo-devservice: cannot use \"" << name << "\"\n\n" << help;
      return EXIT_FAILURE;
    }
  }
  if (!options.scenarioDirectory.empty() && !std::filesystem::is_directory(options.scenarioDirectory)) {
    std::cerr << "orrelo-devservice: " << options.scenarioDirectory << " is no directory\n";
    return EXIT_FAILURE;
  }
  return options;
}

void run(const Options& options) {
  // The service's threads inherit this mask, so that only this thread receives the signals.
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);

  DevService service(options);
  service.start();
  std::cout << "Serving at      " << service.baseUrl() << "\n"
            << "Certificate     " << service.certificatePath().string() << "\n"
            << "Stop with Ctrl+C" << std::endl;
  int received = 0;
  sigwait(&signals, &received);
  service.stop();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto options = parse(argc, argv);
    if (const auto* code = std::get_if<int>(&options)) return *code;
    run(std::get<Options>(options));
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "orrelo-devservice: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}

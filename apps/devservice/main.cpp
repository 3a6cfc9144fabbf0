#include "DevService.h"
#include "http/Certificate.h"

#include <charconv>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <optional>
#include <signal.h>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>

namespace {

using orrelo::devservice::DevService;
using orrelo::devservice::Options;

constexpr int defaultPort = 9443;

constexpr std::string_view help =
    R"(Usage: orrelo-devservice [--port N] [--data DIR] [--scenario DIR] [--print-cpp]

Serves campaigns over HTTPS on this machine, and shows what arrives on a page at its address.

  --port N        port on 127.0.0.1 (9443; 0 takes a free one)
  --data DIR      certificate and database, made if missing
                  ($XDG_DATA_HOME/orrelo-devservice, or ~/.local/share/orrelo-devservice)
  --scenario DIR  what to answer (the scenario that comes with the service)
  --print-cpp     print the field of a host's HostApplication that uses this service, and exit
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

std::string quoted(const std::string& text) {
  std::ostringstream out;
  out << std::quoted(text);
  return out.str();
}

/// Makes the certificate if it is missing, so that the printed file exists.
int printCpp(const Options& options) {
  if (options.port == 0) {
    std::cerr << "orrelo-devservice: --print-cpp needs a --port other than 0\n";
    return EXIT_FAILURE;
  }
  const auto directory = std::filesystem::absolute(options.dataDirectory);
  std::filesystem::create_directories(directory);
  const auto certificate = orrelo::devservice::Certificate::loadOrCreate(directory);
  std::cout << ".developmentService = {" << quoted("https://localhost:" + std::to_string(options.port))
            << ", " << quoted(certificate.certificateFile.string()) << "},\n";
  return EXIT_SUCCESS;
}

/// The options, or the exit code if there is nothing to run.
std::variant<Options, int> parse(int argc, char** argv) {
  Options options{.dataDirectory = defaultDataDirectory(), .scenarioDirectory = {}, .port = defaultPort};
  bool printsCpp = false;
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    if (name == "--print-cpp") {
      printsCpp = true;
      continue;
    }
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
  if (printsCpp) return printCpp(options);
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

// Proves what docs/events.md promises. Usage: orrelo-prove <proof> <amount>, as scripts/prove does.
#include "prove/Proofs.h"

#include <cstdio>
#include <exception>

int main(int count, char** words) {
  using namespace orrelo::prove;
  const std::vector<std::string> arguments(words + 1, words + count);
  try {
    if (!arguments.empty() && arguments[0] == "host")
      return runHost({arguments.begin() + 1, arguments.end()});
    if (arguments.size() == 2) {
      const auto& proof = arguments[0];
      const int amount = std::stoi(arguments[1]);
      if (proof == "kills") return proveKills("/proc/self/exe", amount) ? 0 : 1;
      if (proof == "processes") return proveProcesses("/proc/self/exe", std::chrono::seconds(amount)) ? 0 : 1;
      if (proof == "faults") return proveFaults(amount) ? 0 : 1;
      if (proof == "cuts") return provePowerCuts(amount) ? 0 : 1;
      if (proof == "day") return proveDay(amount) ? 0 : 1;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "orrelo-prove: %s\n", error.what());
    return 1;
  }
  std::fputs("orrelo-prove kills|processes|faults|cuts|day AMOUNT\n", stderr);
  return 2;
}

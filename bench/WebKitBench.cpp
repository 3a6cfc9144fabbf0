// Measures a script message of a page up to the façade's call, which the kit refuses before `initialize`.
#include "Benches.h"
#include "Targets.h"

#include <orrelo/Orrelo.h>
#include <orrelo/OrreloWebKit.h>

#include <cstdlib>
#include <string>

namespace orrelo::bench {
namespace {

using Clock = std::chrono::steady_clock;

std::string bodyOf200Bytes() {
  const std::string start = R"({"method":"sendEvent","parameters":{"event_name":"purchase","event_values":)"
                            R"({"item":"blue shoes","count":12,"price":39.9,"first":true,"note":")";
  const std::string end = R"("}}})";
  return start + std::string(200 - start.size() - end.size(), 'x') + end;
}

void measureBurst(std::vector<double>& samples, const EventValue& body) {
  constexpr int burst = 1'000;
  const auto start = Clock::now();
  for (int i = 0; i < burst; ++i) {
    if (OrreloWebKit::handle(nullptr, OrreloWebKit::handlerName, body)) std::abort();
  }
  samples.push_back(secondsSince(start) * 1e6 / burst);
}

}  // namespace

void addWebKit() {
  add({{"web bridge: a body of 200 bytes to the façade's call", "us", 1.5}}, [] {
    const EventValue body = bodyOf200Bytes();
    std::vector<double> samples;
    for (int i = 0; i < 200; ++i) measureBurst(samples, body);
    return std::vector{quantile(samples, 0.5)};
  });
}

}  // namespace orrelo::bench

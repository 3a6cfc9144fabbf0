#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace orrelo::bench {

/// What a measurement must reach.
struct Target {
  std::string name;
  std::string unit;
  double limit = 0.0;
  /// Whether the figure must be at least the limit; at most, otherwise.
  bool isMinimum = false;
};

/// Measures several figures at once: one for each target, in their order.
void add(std::vector<Target> targets, std::function<std::vector<double>()> measure);

/// Runs what was added, prints a line for each target, and says whether all were met.
bool runAll(int argumentCount, char** arguments);

/// The value below which a share of the samples lies; 0.5 is the median. Sorts them.
double quantile(std::vector<double>& samples, double share);

double secondsSince(std::chrono::steady_clock::time_point start);

}  // namespace orrelo::bench

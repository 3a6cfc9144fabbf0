#pragma once

#include "Figures.h"

#include <chrono>
#include <functional>
#include <vector>

namespace orrelo::bench {

/// Measures several figures at once: one for each target, in their order.
void add(std::vector<Target> targets, std::function<std::vector<double>()> measure);

/// Runs once what was added. With `--figures=FILE` among the arguments it adds the figures to that file, for
/// `orrelo-bench-figures`, and gives true; else it prints a line for each target, and says whether all were
/// met.
bool runAll(int argumentCount, char** arguments);

/// The value below which a share of the samples lies; 0.5 is the median. Sorts them.
double quantile(std::vector<double>& samples, double share);

double secondsSince(std::chrono::steady_clock::time_point start);

}  // namespace orrelo::bench

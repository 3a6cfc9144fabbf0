#pragma once

#include "Figures.h"

#include <chrono>
#include <functional>
#include <vector>

namespace orrelo::bench {

/// Registers a measurement that returns one figure for each target, in their order.
void add(std::vector<Target> targets, std::function<std::vector<double>()> measure);

/// Runs each registered measurement once. With the argument `--figures=FILE` it appends the figures to that
/// file, for `orrelo-bench-figures`, and returns true. Otherwise it prints a line for each target and returns
/// true if all were met.
bool runAll(int argumentCount, char** arguments);

/// The value below which this share of the samples lies; 0.5 is the median. Sorts the samples.
double quantile(std::vector<double>& samples, double share);

double secondsSince(std::chrono::steady_clock::time_point start);

}  // namespace orrelo::bench

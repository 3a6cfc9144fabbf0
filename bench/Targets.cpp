#include "Targets.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string_view>

namespace orrelo::bench {
namespace {

std::map<std::string, std::vector<Target>>& targetsByRun() {
  static std::map<std::string, std::vector<Target>> targets;
  return targets;
}

// Prints a line per target in place of the library's table.
class TargetReporter final : public benchmark::BenchmarkReporter {
 public:
  /// Appends the figures to `file`, to be judged with other runs. If `file` is empty, judges and prints them.
  explicit TargetReporter(const std::string& file) : file_(file, std::ios::app), isSingleRun_(file.empty()) {
    if (!isSingleRun_ && !file_) throw std::runtime_error(file + " cannot be written");
    if (!isSingleRun_) SetErrorStream(&silence_);  // a filter may match only the other program's targets
  }

  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& run : runs) {
      for (const auto& target : targetsByRun()[run.run_name.function_name]) {
        const double value = run.counters.at(target.name).value;
        if (!isSingleRun_) {
          writeRun(file_, target, value);
          continue;
        }
        const auto figure = Figure(target, {value});
        allMet = allMet && figure.isMet();
        std::cout << line(figure) << std::endl;
      }
    }
  }

  bool allMet = true;

 private:
  std::ofstream file_;
  std::ostream silence_{nullptr};
  bool isSingleRun_;
};

// Removes "--figures=FILE" from the arguments and returns the file, or an empty string.
std::string takeFile(int& argumentCount, char** arguments) {
  constexpr std::string_view name = "--figures=";
  std::string file;
  const auto isFile = [&](const char* argument) { return std::string_view(argument).starts_with(name); };
  char** const end = arguments + argumentCount;
  char** const found = std::find_if(arguments + 1, end, isFile);
  if (found == end) return file;
  file = *found + name.size();
  std::copy(found + 1, end, found);
  --argumentCount;
  return file;
}

}  // namespace

void add(std::vector<Target> targets, std::function<std::vector<double>()> measure) {
  const auto run = targets.front().name;
  targetsByRun()[run] = targets;
  benchmark::RegisterBenchmark(run.c_str(), [targets, measure](benchmark::State& state) {
    for (auto iteration : state) {
      const auto figures = measure();
      for (std::size_t i = 0; i < targets.size(); ++i) state.counters[targets[i].name] = figures.at(i);
    }
  })->Iterations(1);
}

bool runAll(int argumentCount, char** arguments) {
  TargetReporter reporter(takeFile(argumentCount, arguments));
  benchmark::Initialize(&argumentCount, arguments);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.allMet;
}

double quantile(std::vector<double>& samples, double share) {
  std::sort(samples.begin(), samples.end());
  const auto place = static_cast<std::size_t>(share * static_cast<double>(samples.size() - 1) + 0.5);
  return samples.at(place);
}

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace orrelo::bench

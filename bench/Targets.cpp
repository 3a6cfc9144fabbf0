#include "Targets.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>

namespace orrelo::bench {
namespace {

std::map<std::string, std::vector<Target>>& targetsByRun() {
  static std::map<std::string, std::vector<Target>> targets;
  return targets;
}

// A line a target, in place of the library's table.
class TargetReporter final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& run : runs) {
      for (const auto& target : targetsByRun()[run.run_name.function_name]) {
        const double figure = run.counters.at(target.name).value;
        const bool isMet = target.isMinimum ? figure >= target.limit : figure <= target.limit;
        allMet = allMet && isMet && !run.error_occurred;
        std::printf("%-58s %9.2f %-6s target %s %7.2f  %s\n", target.name.c_str(), figure,
                    target.unit.c_str(), target.isMinimum ? "at least" : "at most ", target.limit,
                    isMet ? "met" : "MISSED");
        std::fflush(stdout);
      }
    }
  }

  bool allMet = true;
};

}  // namespace

void add(std::vector<Target> targets, std::function<std::vector<double>()> measure) {
  const auto run = targets.front().name;
  targetsByRun()[run] = targets;
  benchmark::RegisterBenchmark(run.c_str(), [targets, measure](benchmark::State& state) {
    for (auto iteration : state) {
      const auto figures = measure();
      for (std::size_t i = 0; i < targets.size(); ++i) state.counters[targets[i].name] = figures[i];
    }
  })->Iterations(1);
}

bool runAll(int argumentCount, char** arguments) {
  benchmark::Initialize(&argumentCount, arguments);
  TargetReporter reporter;
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

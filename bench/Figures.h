#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::bench {

/// A named measurement and its limit.
struct Target {
  std::string name;
  /// Empty for a count.
  std::string unit;
  /// Absent if the figure is only printed, not judged.
  std::optional<double> limit = {};
  /// True if the figure must be at least the limit, false if it must be at most the limit.
  bool isMinimum = false;
};

/// A target and its measurements in several runs.
struct Figure {
  Figure(Target measured, std::vector<double> figures);

  double median() const;
  /// The range of the runs. With five runs or more, the smallest and the largest are left out, so that one
  /// disturbed run does not hide a difference.
  double spread() const;
  /// Judges the median of the runs, or the worst run of a count, which has no noise.
  bool isMet() const;

  Target target;
  /// Sorted in ascending order; never empty.
  std::vector<double> runs;
};

/// Writes one run's figure as a line.
void writeRun(std::ostream& stream, const Target& target, double figure);
/// Reads the lines of `writeRun` into one figure per target, in order of first occurrence. Throws
/// std::runtime_error at a malformed line.
std::vector<Figure> readRuns(std::istream& stream);

/// Writes a line per target: its name, its unit and the figure of each run, separated by tabs. Limits are not
/// saved.
void writeFigures(std::ostream& stream, const std::vector<Figure>& figures);
/// Reads the lines of `writeFigures`. Throws std::runtime_error at a malformed line.
std::vector<Figure> readFigures(std::istream& stream);

/// The line to print: the median, the smallest and largest run, the limit and the verdict.
std::string line(const Figure& figure);
/// The line to print for one target before and now. It differs if the medians are further apart than either
/// spread.
std::string comparison(const Figure& before, const Figure& now);

}  // namespace orrelo::bench

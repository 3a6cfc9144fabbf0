#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::bench {

/// A measurement by name, and the limit that it is judged by.
struct Target {
  std::string name;
  /// Empty for a count.
  std::string unit;
  /// Absent for a figure that is printed and not judged.
  std::optional<double> limit = {};
  /// Whether the figure must be at least the limit; at most, otherwise.
  bool isMinimum = false;
};

/// A target with what some runs have measured.
struct Figure {
  Figure(Target measured, std::vector<double> figures);

  double median() const;
  /// The distance of the largest from the least, without these two where there are five runs or more: one run
  /// that something disturbed must not hide a difference.
  double spread() const;
  /// Judged by the median of the runs; a count, which has no noise, by the worst run.
  bool isMet() const;

  Target target;
  /// From the least to the largest; at least one.
  std::vector<double> runs;
};

/// One run's figure as a line.
void writeRun(std::ostream& stream, const Target& target, double figure);
/// The figures of all such lines, in the order in which the targets come up. These and `readFigures` throw
/// std::runtime_error at a line of another form.
std::vector<Figure> readRuns(std::istream& stream);

/// A line a target: name, unit, and the figure of each run, with a tab between them. Limits are not kept:
/// what is read has none.
void writeFigures(std::ostream& stream, const std::vector<Figure>& figures);
std::vector<Figure> readFigures(std::istream& stream);

/// A figure, its spread, its limit and the verdict.
std::string line(const Figure& figure);
/// The same target before and now; it differs where the medians are further apart than either spread.
std::string comparison(const Figure& before, const Figure& now);

}  // namespace orrelo::bench

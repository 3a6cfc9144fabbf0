#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::bench {

/// What a measurement must reach.
struct Target {
  std::string name;
  /// Empty for a count.
  std::string unit;
  /// Absent for a figure that is printed and not judged.
  std::optional<double> limit = {};
  /// Whether the figure must be at least the limit; at most, otherwise.
  bool isMinimum = false;
};

/// A target with the figures of some runs.
struct Figure {
  Target target;
  double median = 0.0;
  double least = 0.0;
  double largest = 0.0;

  double spread() const { return largest - least; }
  /// Judged by the median of the runs; a count, which has no noise, by the worst run.
  bool isMet() const;
};

/// The median and the spread of the runs' figures.
Figure figureOf(Target target, std::vector<double> runs);

/// One run's figure as a line.
void writeRun(std::ostream& stream, const Target& target, double figure);
/// The figures of all such lines, in the order in which the targets come up. These and `readFigures` throw
/// std::runtime_error at a line of another form.
std::vector<Figure> readRuns(std::istream& stream);

/// A line a target: name, unit, median, least, largest, with a tab between them. Limits are not kept: what is
/// read has none.
void writeFigures(std::ostream& stream, const std::vector<Figure>& figures);
std::vector<Figure> readFigures(std::istream& stream);

/// A figure, its spread, its limit and the verdict.
std::string line(const Figure& figure);
/// The same target before and now; a figure differs by more than the spread of either.
std::string comparison(const Figure& before, const Figure& now);

}  // namespace orrelo::bench

#include "Figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <istream>
#include <limits>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace orrelo::bench {
namespace {

constexpr auto header = "name\tunit\tfigure of each run";

template <class... Values>
std::string formatted(const char* format, Values... values) {
  std::array<char, 256> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, '\t');) fields.push_back(field);
  return fields;
}

void require(bool isValid, const std::string& line) {
  if (!isValid) throw std::runtime_error("This is no line of figures: " + line);
}

double numberIn(const std::string& field) {
  try {
    std::size_t length = 0;
    const double number = std::stod(field, &length);
    if (length == field.size()) return number;
  } catch (const std::logic_error&) {  // reported below
  }
  throw std::runtime_error("This is no figure: " + field);
}

std::string verdict(const Figure& figure) {
  const auto& target = figure.target;
  if (!target.limit) return {};
  return formatted("  target %s %8.2f  %s", target.isMinimum ? "at least" : "at most ", *target.limit,
                   figure.isMet() ? "met" : "MISSED");
}

}  // namespace

Figure::Figure(Target measured, std::vector<double> figures)
    : target(std::move(measured)), runs(std::move(figures)) {
  std::sort(runs.begin(), runs.end());
}

double Figure::median() const {
  return (runs.at((runs.size() - 1) / 2) + runs.at(runs.size() / 2)) / 2;
}

double Figure::spread() const {
  const std::size_t trimmed = runs.size() >= 5 ? 1 : 0;
  return runs.at(runs.size() - 1 - trimmed) - runs.at(trimmed);
}

bool Figure::isMet() const {
  if (!target.limit) return true;
  const bool isCount = target.unit.empty();
  if (target.isMinimum) return (isCount ? runs.front() : median()) >= *target.limit;
  return (isCount ? runs.back() : median()) <= *target.limit;
}

void writeRun(std::ostream& stream, const Target& target, double figure) {
  stream.precision(std::numeric_limits<double>::max_digits10);
  stream << target.name << '\t' << target.unit << '\t';
  if (target.limit) stream << *target.limit;
  stream << '\t' << (target.isMinimum ? "least" : "most") << '\t' << figure << '\n';
}

std::vector<Figure> readRuns(std::istream& stream) {
  std::vector<std::pair<Target, std::vector<double>>> runs;
  for (std::string line; std::getline(stream, line);) {
    const auto fields = fieldsOf(line);
    require(fields.size() == 5, line);
    auto found = std::find_if(runs.begin(), runs.end(),
                              [&](const auto& known) { return known.first.name == fields[0]; });
    if (found == runs.end()) {
      const auto limit = fields[2].empty() ? std::nullopt : std::optional(numberIn(fields[2]));
      found = runs.insert(runs.end(), {Target{fields[0], fields[1], limit, fields[3] == "least"}, {}});
    }
    found->second.push_back(numberIn(fields[4]));
  }
  std::vector<Figure> figures;
  for (auto& [target, samples] : runs) figures.emplace_back(std::move(target), std::move(samples));
  return figures;
}

void writeFigures(std::ostream& stream, const std::vector<Figure>& figures) {
  stream << header << '\n';
  stream.precision(std::numeric_limits<double>::max_digits10);
  for (const auto& figure : figures) {
    stream << figure.target.name << '\t' << figure.target.unit;
    for (const double run : figure.runs) stream << '\t' << run;
    stream << '\n';
  }
}

std::vector<Figure> readFigures(std::istream& stream) {
  std::string line;
  if (!std::getline(stream, line) || line != header) throw std::runtime_error("This is no file of figures");
  std::vector<Figure> figures;
  while (std::getline(stream, line)) {
    const auto fields = fieldsOf(line);
    require(fields.size() > 2, line);
    std::vector<double> runs;
    for (std::size_t i = 2; i < fields.size(); ++i) runs.push_back(numberIn(fields[i]));
    figures.push_back({{fields[0], fields[1]}, std::move(runs)});
  }
  return figures;
}

std::string line(const Figure& figure) {
  return formatted("%-58s %10.2f %-5s (%.2f to %.2f)", figure.target.name.c_str(), figure.median(),
                   figure.target.unit.c_str(), figure.runs.front(), figure.runs.back()) +
         verdict(figure);
}

std::string comparison(const Figure& before, const Figure& now) {
  const double change = now.median() - before.median();
  const bool differs = std::abs(change) > std::max(before.spread(), now.spread());
  const auto ratio =
      before.median() == 0.0 ? std::string("-") : formatted("%.2f", now.median() / before.median());
  return formatted("%-58s %10.2f -> %10.2f %-5s ratio %5s  %s", now.target.name.c_str(), before.median(),
                   now.median(), now.target.unit.c_str(), ratio.c_str(), differs ? "DIFFERS" : "same");
}

}  // namespace orrelo::bench

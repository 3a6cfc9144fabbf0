// Prints the median and the range of each target over several runs of the two benchmark programs.
// Usage: orrelo-bench-figures RUNS [--save FILE] [--against FILE]
#include "Figures.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

using namespace orrelo::bench;

std::ifstream opened(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error(file + " cannot be read");
  return stream;
}

void save(const std::string& file, const std::vector<Figure>& figures) {
  std::ofstream stream(file);
  writeFigures(stream, figures);
  if (!stream.flush()) throw std::runtime_error(file + " cannot be written");
}

const Figure* find(const std::vector<Figure>& figures, const std::string& name) {
  const auto found = std::find_if(figures.begin(), figures.end(),
                                  [&](const Figure& figure) { return figure.target.name == name; });
  return found == figures.end() ? nullptr : &*found;
}

void compare(const std::string& file, const std::vector<Figure>& figures) {
  auto stream = opened(file);
  const auto before = readFigures(stream);
  std::cout << "\nbefore and now:\n";
  for (const auto& figure : figures) {
    const auto* const old = find(before, figure.target.name);
    std::cout << (old == nullptr ? line(figure) + "  NEW" : comparison(*old, figure)) << '\n';
  }
  for (const auto& old : before) {
    if (find(figures, old.target.name) == nullptr) std::cout << line(old) << "  NOT MEASURED NOW\n";
  }
}

int run(int count, char** words) {
  if (count < 2 || count % 2 != 0)
    throw std::runtime_error("orrelo-bench-figures RUNS [--save FILE] [--against FILE]");
  auto runs = opened(words[1]);
  const auto figures = readRuns(runs);
  if (figures.empty()) throw std::runtime_error("nothing was measured");
  for (const auto& figure : figures) std::cout << line(figure) << '\n';
  std::string saved;
  for (int i = 2; i < count; i += 2) {
    if (std::strcmp(words[i], "--save") == 0) {
      saved = words[i + 1];
    } else if (std::strcmp(words[i], "--against") == 0) {
      compare(words[i + 1], figures);
    } else {
      throw std::runtime_error(std::string("what is ") + words[i] + "?");
    }
  }
  if (!saved.empty()) save(saved, figures);  // the comparison above may read the same file
  return std::all_of(figures.begin(), figures.end(), [](const Figure& figure) { return figure.isMet(); }) ? 0
                                                                                                          : 1;
}

}  // namespace

int main(int count, char** words) {
  try {
    return run(count, words);
  } catch (const std::exception& exception) {
    std::cerr << "orrelo-bench-figures: " << exception.what() << '\n';
    return 2;
  }
}

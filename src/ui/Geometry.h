#pragma once

#include <numbers>

namespace orrelo {

/// A size in points, where a point is one pixel at a screen scale of 1. The other types use points too,
/// unless their user says otherwise.
struct Size {
  double width = 0.0;
  double height = 0.0;

  friend bool operator==(const Size&, const Size&) = default;
};

struct Position {
  double x = 0.0;
  double y = 0.0;

  friend bool operator==(const Position&, const Position&) = default;
};

struct Rect {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;

  friend bool operator==(const Rect&, const Rect&) = default;
};

constexpr double radians(double degrees) {
  return degrees * std::numbers::pi / 180.0;
}

}  // namespace orrelo

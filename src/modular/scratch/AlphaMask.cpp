#include "modular/scratch/AlphaMask.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orrelo {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Span {
  double from = infinity;
  double to = -infinity;

  bool isEmpty() const { return from > to; }
  Span united(Span other) const { return {std::min(from, other.from), std::max(to, other.to)}; }
  Span intersected(Span other) const { return {std::max(from, other.from), std::min(to, other.to)}; }
};

// A line segment, for queries by distance.
class Line {
 public:
  Line(Position from, Position to) : from_(from), to_(to), length_(std::hypot(to.x - from.x, to.y - from.y)) {
    if (length_ > 0.0) direction_ = {(to.x - from.x) / length_, (to.y - from.y) / length_};
  }

  // The part of the row at `y` within the distance of the segment. It is one span, since the shape is convex.
  Span spanInRow(double y, double distance) const {
    auto span = aroundEnd(from_, y, distance).united(aroundEnd(to_, y, distance));
    if (length_ <= 0.0) return span;
    const double dy = y - from_.y;
    const auto along = between(direction_.x, direction_.y * dy, 0.0, length_);
    const auto beside = between(-direction_.y, direction_.x * dy, -distance, distance);
    const auto body = along.intersected(beside);
    return body.isEmpty() ? span : span.united({body.from + from_.x, body.to + from_.x});
  }

  double distanceTo(Position point) const {
    const Position offset{point.x - from_.x, point.y - from_.y};
    const double along = std::clamp(offset.x * direction_.x + offset.y * direction_.y, 0.0, length_);
    return std::hypot(offset.x - along * direction_.x, offset.y - along * direction_.y);
  }

 private:
  static Span aroundEnd(Position end, double y, double distance) {
    const double square = distance * distance - (y - end.y) * (y - end.y);
    if (square < 0.0) return {};
    return {end.x - std::sqrt(square), end.x + std::sqrt(square)};
  }
  // The interval of x in which slope * x + offset is between `low` and `high`.
  static Span between(double slope, double offset, double low, double high) {
    if (slope == 0.0) return low <= offset && offset <= high ? Span{-infinity, infinity} : Span();
    const double first = (low - offset) / slope;
    const double second = (high - offset) / slope;
    return {std::min(first, second), std::max(first, second)};
  }

  Position from_;
  Position to_;
  double length_;
  Position direction_;
};

bool isPlausible(Position point) {
  constexpr double maximumCoordinate = 1e6;
  return std::abs(point.x) <= maximumCoordinate && std::abs(point.y) <= maximumCoordinate;
}

// `firstPixel` is the first pixel whose centre is at or after the coordinate; `endPixel` is one past the last
// pixel whose centre is at or before it.
int firstPixel(double coordinate, int count) {
  return static_cast<int>(std::clamp(std::ceil(coordinate - 0.5), 0.0, static_cast<double>(count)));
}
int endPixel(double coordinate, int count) {
  return static_cast<int>(std::clamp(std::floor(coordinate - 0.5) + 1.0, 0.0, static_cast<double>(count)));
}

}  // namespace

PixelRect PixelRect::united(const PixelRect& other) const {
  if (isEmpty()) return other;
  if (other.isEmpty()) return *this;
  const int left = std::min(x, other.x);
  const int top = std::min(y, other.y);
  return {left, top, std::max(x + width, other.x + other.width) - left,
          std::max(y + height, other.y + other.height) - top};
}

AlphaMask::AlphaMask(int width, int height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 255) {}

PixelRect AlphaMask::eraseLine(Position from, Position to, double lineWidth) {
  if (!isPlausible(from) || !isPlausible(to)) return {};
  const Line line(from, to);
  const double outer = lineWidth / 2 + 0.5;  // pixels beyond are not covered
  const double inner = lineWidth / 2 - 0.5;  // pixels within are fully covered
  const int left = firstPixel(std::min(from.x, to.x) - outer, width_);
  const int right = endPixel(std::max(from.x, to.x) + outer, width_);
  const int top = firstPixel(std::min(from.y, to.y) - outer, height_);
  const int bottom = endPixel(std::max(from.y, to.y) + outer, height_);
  for (int y = top; y < bottom; ++y) {
    auto* const pixels = row(y);
    const double middle = y + 0.5;
    const auto erasePartly = [&](int first, int end) {
      for (int x = first; x < end; ++x) {
        const double share = std::clamp(line.distanceTo({x + 0.5, middle}) - inner, 0.0, 1.0);
        pixels[x] = static_cast<std::uint8_t>(std::lround(pixels[x] * share));
      }
    };
    const auto touched = line.spanInRow(middle, outer);
    const int first = firstPixel(touched.from, width_);
    const int end = endPixel(touched.to, width_);
    const auto covered = line.spanInRow(middle, inner);
    const int firstCovered = std::clamp(firstPixel(covered.from, width_), first, std::max(first, end));
    const int endCovered =
        std::clamp(endPixel(covered.to, width_), firstCovered, std::max(firstCovered, end));
    erasePartly(first, firstCovered);
    std::fill(pixels + firstCovered, pixels + endCovered, std::uint8_t{0});
    erasePartly(endCovered, end);
  }
  const PixelRect touched{left, top, right - left, bottom - top};
  return touched.isEmpty() ? PixelRect() : touched;
}

double AlphaMask::clearedRatio() const {
  if (pixels_.empty()) return 0.0;
  auto count = std::count(pixels_.begin(), pixels_.end(), std::uint8_t{0});
  // Deliberate: each row is counted one pixel too far, so the first pixel of the next row is counted twice.
  for (int y = 1; y < height_; ++y) count += *row(y) == 0 ? 1 : 0;
  return std::min(static_cast<double>(count) / static_cast<double>(pixels_.size()), 1.0);
}

AlphaMask AlphaMask::stretched(int width, int height) const {
  AlphaMask mask(width, height);
  for (int y = 0; y < height; ++y) {
    const auto* const source = row(static_cast<int>(std::int64_t{y} * height_ / height));
    auto* const target = mask.row(y);
    for (int x = 0; x < width; ++x) target[x] = source[std::int64_t{x} * width_ / width];
  }
  return mask;
}

}  // namespace orrelo

#include "modular/roulette/RouletteDrawing.h"

#include "base/Utf8.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orrelo {
namespace {

constexpr Color white{1.0, 1.0, 1.0, 1.0};
constexpr Color textColor{0.363, 0.369, 0.375, 1.0};

double degreesOf(Position direction) {
  return std::atan2(direction.y, direction.x) * 180.0 / std::numbers::pi;
}

// The arc of a rounded corner between the sides to `before` and to `after`.
RouletteDrawing::Arc rounded(Position before, Position corner, Position after, double radius) {
  const auto towards = [corner](Position end) {
    const double length = std::hypot(end.x - corner.x, end.y - corner.y);
    return Position{(end.x - corner.x) / length, (end.y - corner.y) / length};
  };
  const Position in = towards(before);
  const Position out = towards(after);
  const double half = std::acos(in.x * out.x + in.y * out.y) / 2;
  const double reach = radius / std::tan(half);
  const Position bisector{in.x + out.x, in.y + out.y};
  const double distance = radius / std::sin(half) / std::hypot(bisector.x, bisector.y);
  const Position center{corner.x + bisector.x * distance, corner.y + bisector.y * distance};
  const auto fromCenter = [&](Position side) {
    return degreesOf({corner.x + side.x * reach - center.x, corner.y + side.y * reach - center.y});
  };
  const double start = fromCenter(in);
  return {center, radius, start, std::remainder(fromCenter(out) - start, 360.0)};
}

RouletteDrawing::Pin pinOf(double width, const Color& color) {
  constexpr double cornerRadius = 3.0;
  const Position left{width / 2 - 15.0, 0.0};
  const Position right{width / 2 + 15.0, 0.0};
  const Position tip{width / 2, 35.0};
  return {{rounded(left, tip, right, cornerRadius), rounded(tip, right, left, cornerRadius),
           rounded(right, left, tip, cornerRadius)},
          color};
}

// Paints the sectors of the wheel and their texts.
class WheelPainter {
 public:
  WheelPainter(Position center, double radius, double itemTextLayerRadius, std::size_t count)
      : center_(center),
        radius_(radius),
        textLayerRadius_(itemTextLayerRadius),
        sectorSize_(360.0 / static_cast<double>(count)),
        textSize_{radius * 2 * std::numbers::pi / static_cast<double>(count), radius * 0.5} {}

  RouletteDrawing::Wheel paint(const std::vector<RouletteItemModel>& items) const {
    RouletteDrawing::Wheel wheel;
    double startAngle = 0.0;
    for (const auto& item : items) {
      const double endAngle = startAngle + sectorSize_;
      auto color = item.color;
      color.alpha = 0.3;
      wheel.sectors.push_back({center_, radius_, startAngle, endAngle, color});
      const double middle = startAngle + sectorSize_ * 0.5;
      const auto bodySize = utf8::graphemeCount(item.body) > 5 ? 11.0 : 16.0;
      wheel.texts.push_back(text(item.title, middle, 0.95, {.size = 14.0, .color = textColor}));
      wheel.texts.push_back(
          text(item.body, middle, 0.65, {bodySize, TextStyle::Weight::semibold, textColor}));
      startAngle = endAngle;
    }
    return wheel;
  }

 private:
  // Places a text on the sector's centre line at half of `share` of the radius. The text is upright when the
  // sector is under the pin.
  RouletteDrawing::Text text(const std::string& text, double middle, double share,
                             const TextStyle& style) const {
    const double distance = textLayerRadius_ * share / 2;
    const Position anchor{center_.x + distance * std::cos(radians(middle)),
                          center_.y + distance * std::sin(radians(middle))};
    return {
        text,
        {anchor.x - textSize_.width / 2, anchor.y - textSize_.height / 2, textSize_.width, textSize_.height},
        middle - 270.0,
        style};
  }

  const Position center_;
  const double radius_;
  const double textLayerRadius_;
  const double sectorSize_;
  const Size textSize_;
};

RouletteDrawing::Veil veilOf(Position center, double radius) {
  return {{center, radius, {0.239, 0.243, 0.247, 0.5}},
          {RouletteDrawing::veilText,
           {center.x - 75.0, center.y - 10.0, 150.0, 20.0},
           0.0,
           {18.0, TextStyle::Weight::bold, white}}};
}

}  // namespace

RouletteDrawing RouletteDrawing::of(const std::vector<RouletteItemModel>& items, const Look& look,
                                    Size size) {
  const Position center{size.width / 2, size.height / 2};
  const double r = std::min(center.x, center.y);
  const auto radius = [r](double inset) { return std::max(r - inset, 0.0); };
  const auto disc = [&](double inset, const Color& color) { return Disc{center, radius(inset), color}; };
  const double wheelRadius = radius(25.0);
  RouletteDrawing drawing{
      .rim = {disc(5.0, look.secondaryColor), disc(25.0, {0.945, 0.949, 0.953, 1.0}), disc(35.0, white)},
      .wheel = {},
      .centerDot = {center, 6.0, look.primaryColor},
      .veil = {},
      .pin = pinOf(size.width, look.primaryColor)};
  if (!items.empty()) {
    drawing.wheel = WheelPainter(center, wheelRadius, radius(5.0), items.size()).paint(items);
  }
  if (!look.isEnabled) drawing.veil = veilOf(center, wheelRadius);
  return drawing;
}

}  // namespace orrelo

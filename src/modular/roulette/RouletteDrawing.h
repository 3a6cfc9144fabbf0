#pragma once

#include "base/Color.h"
#include "ui/Geometry.h"
#include "viewkit/TextStyle.h"

#include <orrelo/Export.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// What stands on a sector of the wheel, and the sector's colour.
struct RouletteItemModel {
  std::string title;
  std::string body;
  Color color;

  friend bool operator==(const RouletteItemModel&, const RouletteItemModel&) = default;
};

/// A wheel of fortune as a painter paints it, in points from the top left. Angles are in degrees, 0 at three
/// o'clock, and grow clockwise.
struct ORRELO_EXPORT RouletteDrawing {
  struct Disc {
    Point center;
    double radius = 0.0;
    Color color;

    friend bool operator==(const Disc&, const Disc&) = default;
  };
  struct Sector {
    Point center;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    Color color;

    friend bool operator==(const Sector&, const Sector&) = default;
  };
  /// In the middle of its frame's width, from the frame's top, never wrapped: what is longer than the frame
  /// is cut at its edges.
  struct Text {
    std::string text;
    /// Before it is turned about its middle.
    Rect frame;
    double rotation = 0.0;
    TextStyle style;

    friend bool operator==(const Text&, const Text&) = default;
  };
  /// Anticlockwise where the sweep is negative.
  struct Arc {
    Point center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;

    friend bool operator==(const Arc&, const Arc&) = default;
  };
  /// What turns, about the middle of the drawing. It is as large as the drawing.
  struct Wheel {
    std::vector<Sector> sectors;
    /// The title and the body of each sector.
    std::vector<Text> texts;

    friend bool operator==(const Wheel&, const Wheel&) = default;
  };
  /// The rounded corners, one after the other, with straight lines between them.
  struct Pin {
    std::array<Arc, 3> corners;
    Color color;

    friend bool operator==(const Pin&, const Pin&) = default;
  };
  struct Veil {
    Disc disc;
    Text text;

    friend bool operator==(const Veil&, const Veil&) = default;
  };
  struct Look {
    Color primaryColor{0.071, 0.565, 1.0, 1.0};
    Color secondaryColor{0.071, 0.565, 1.0, 0.1};
    bool isEnabled = true;
  };

  static constexpr auto veilText = "이벤트 참여 완료";

  static RouletteDrawing of(const std::vector<RouletteItemModel>& items, const Look& look, Size size);

  // From the lowest to the uppermost. Everything is cut at the edges of the drawing.
  std::array<Disc, 3> rim;
  Wheel wheel;
  Disc centerDot;
  /// Over a wheel that is not enabled.
  std::optional<Veil> veil;
  Pin pin;

  friend bool operator==(const RouletteDrawing&, const RouletteDrawing&) = default;
};

}  // namespace orrelo

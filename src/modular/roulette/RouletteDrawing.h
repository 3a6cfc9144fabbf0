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

/// The texts and the colour of a sector of the wheel.
struct RouletteItemModel {
  std::string title;
  std::string body;
  Color color;

  friend bool operator==(const RouletteItemModel&, const RouletteItemModel&) = default;
};

/// The shapes of a wheel of fortune, in points from the top left. Angles are in degrees, 0 at three o'clock,
/// and increase clockwise.
struct ORRELO_EXPORT RouletteDrawing {
  struct Disc {
    Position center;
    double radius = 0.0;
    Color color;

    friend bool operator==(const Disc&, const Disc&) = default;
  };
  struct Sector {
    Position center;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    Color color;

    friend bool operator==(const Sector&, const Sector&) = default;
  };
  /// A text that is centered horizontally at the top of its frame. It is not wrapped and is clipped to the
  /// frame.
  struct Text {
    std::string text;
    /// The frame before the rotation about its centre.
    Rect frame;
    double rotation = 0.0;
    TextStyle style;

    friend bool operator==(const Text&, const Text&) = default;
  };
  /// A circular arc; a negative sweep is anticlockwise.
  struct Arc {
    Position center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;

    friend bool operator==(const Arc&, const Arc&) = default;
  };
  /// The rotating part. It has the size of the drawing and rotates about its centre.
  struct Wheel {
    std::vector<Sector> sectors;
    /// The title and the body of each sector.
    std::vector<Text> texts;

    friend bool operator==(const Wheel&, const Wheel&) = default;
  };
  /// A triangle given by its rounded corners in drawing order, connected by straight lines.
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

  // The layers from bottom to top. All of them are clipped to the drawing.
  std::array<Disc, 3> rim;
  Wheel wheel;
  Disc centerDot;
  /// Covers the wheel if it is disabled.
  std::optional<Veil> veil;
  Pin pin;

  friend bool operator==(const RouletteDrawing&, const RouletteDrawing&) = default;
};

}  // namespace orrelo

#pragma once

#include "modular/roulette/LayerPersistentHelper.h"
#include "modular/roulette/RouletteDrawing.h"
#include "reactive/Observable.h"
#include "ui/Animation.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

class RouletteViewDelegate {
 public:
  virtual ~RouletteViewDelegate() = default;

  virtual void spinDidEnd(const std::string& actionUrl) = 0;
};

/// A wheel of fortune that stops at a given sector. A front calls `wheelDidAppear` with the wheel's
/// first frame, paints `drawing` while it is in sight, and rotates the wheel as the state says.
class ORRELO_EXPORT RouletteView final : public View {
 public:
  struct State {
    /// A disabled wheel is covered by the veil.
    bool isEnabled = true;
    /// The rotation of the wheel at rest, clockwise in radians.
    double rotation = 0.0;
    /// The running animation of the rotation. The front reports its end.
    std::optional<Animation> spin = {};
    /// The spin is paused at its current rotation.
    bool isPaused = false;
    /// The outcome for assistive technology; empty until a sector has stopped under the pin.
    std::string outcome = {};

    friend bool operator==(const State&, const State&) = default;
  };
  /// The width and the height, in points.
  static constexpr double side = 280.0;
  static constexpr std::chrono::seconds spinDuration{4};

  RouletteView(const Color& primary, const Color& secondary)
      : primaryColor(primary), secondaryColor(secondary) {}

  static constexpr std::string_view kindName = "RouletteView";
  std::string_view kind() const override { return kindName; }

  /// The clockwise rotation in degrees that moves the centre of a sector under the pin, for a wheel with
  /// `count` sectors. Any index is allowed; `count` must be positive.
  static double finalAngle(std::int64_t index, std::size_t count);

  void configure(std::vector<RouletteItemModel> items);
  /// Spins the wheel to the sector as soon as it is painted, and then notifies the delegate. Does nothing if
  /// there are no sectors.
  void spin(std::int64_t endIndex, const std::string& spinDidEndActionUrl);
  /// Shows the wheel as it would be after a spin to the sector, without an animation.
  void showResult(std::int64_t index);
  void setEnabled(bool isEnabled);

  RouletteDrawing drawing() const;
  /// The label for assistive technology: the outcome, if there is one, and the prizes.
  std::string accessibilityLabel() const;

  // Called by the front.
  /// The wheel is part of a frame for the first time, in sight or not. Later calls have no effect.
  void wheelDidAppear();
  /// The wheel cannot be painted, so it will not spin. Qt's painter never reports this.
  void wheelDidFail(const Error& error);
  /// The spin has ended. If it was interrupted (`finished` is false), the state stays as it is.
  void animationDidStop(bool finished);

  const Color primaryColor;
  const Color secondaryColor;
  std::optional<std::int64_t> willEndIndex;
  std::optional<std::string> spinWheelDidEndActionUrl;
  std::weak_ptr<RouletteViewDelegate> delegate;
  Followed<State> state;

 private:
  /// Calls `task` on the main thread as soon as the wheel is painted, which may be immediately.
  void whenWheelIsPainted(std::function<void(RouletteView&)> task);
  void startSpin(double angle);
  void finishSpin(double rotation);
  std::string outcomeOf(std::int64_t index) const;

  std::vector<RouletteItemModel> items_;
  bool isWheelPainted_ = false;
  reactive::PublishSubject<reactive::Unit> isAppendedWheelLayer_;
  std::optional<LayerPersistentHelper> persistentHelper_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

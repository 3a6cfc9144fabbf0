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

/// A wheel of fortune that lands where it was told to. A front paints `drawing` once, says when the wheel is
/// there, and turns it as the state says.
class ORRELO_EXPORT RouletteView final : public View {
 public:
  struct State {
    /// A wheel that is not enabled lies under its veil.
    bool isEnabled = true;
    /// Of the wheel while it is at rest: clockwise, in radians.
    double rotation = 0.0;
    /// Of the rotation, to be played while it is here. The front reports its end.
    std::optional<Animation> spin = {};
    /// The spin stands still where it is.
    bool isPaused = false;
    /// What assistive technology says of the sector that has come under the pin; empty until one has.
    std::string outcome = {};

    friend bool operator==(const State&, const State&) = default;
  };
  /// Both its width and its height.
  static constexpr double side = 280.0;
  static constexpr std::chrono::seconds spinDuration{4};

  RouletteView(const Color& primary, const Color& secondary)
      : primaryColor(primary), secondaryColor(secondary) {}

  static constexpr std::string_view kindName = "RouletteView";
  std::string_view kind() const override { return kindName; }

  /// How far, in degrees, to turn a wheel of so many sectors clockwise so that the middle of one comes under
  /// the pin. Any index serves; there must be a sector.
  static double finalAngle(std::int64_t index, std::size_t count);

  void configure(std::vector<RouletteItemModel> items);
  /// Once the wheel is there, it spins to the sector, and the delegate is told. A wheel without sectors does
  /// nothing at all.
  void spin(std::int64_t endIndex, const std::string& spinDidEndActionUrl);
  /// The wheel rests where a spin to the sector would have left it.
  void showResult(std::int64_t index);
  void setEnabled(bool isEnabled);

  RouletteDrawing drawing() const;
  /// What assistive technology says of the wheel: the outcome, once there is one, and its prizes.
  std::string accessibilityLabel() const;

  // What the front reports.
  /// The wheel was painted for the first time; later reports change nothing.
  void wheelDidAppear();
  /// The wheel cannot be painted: it will not turn. Qt's painter has no such case.
  void wheelDidFail(const Error& error);
  /// The spin was played to its end, or was cut short, which leaves everything as it is.
  void animationDidStop(bool finished);

  const Color primaryColor;
  const Color secondaryColor;
  std::optional<std::int64_t> willEndIndex;
  std::optional<std::string> spinWheelDidEndActionUrl;
  std::weak_ptr<RouletteViewDelegate> delegate;
  Followed<State> state;

 private:
  /// On the main thread, as soon as the wheel is there: it may be already.
  void whenWheelIsThere(std::function<void(RouletteView&)> task);
  void startSpin(double angle);
  void finishSpin(double rotation);
  std::string outcomeOf(std::int64_t index) const;

  std::vector<RouletteItemModel> items_;
  bool isWheelThere_ = false;
  reactive::PublishSubject<reactive::Unit> isAppendedWheelLayer_;
  std::optional<LayerPersistentHelper> persistentHelper_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo

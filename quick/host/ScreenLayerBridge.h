#pragma once

#include "quick/bridge/ScreenBridge.h"

namespace orrelo::quick {

/// One row of a ScreenLayers list.
class ScreenLayerBridge final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ScreenBridge* screen READ screen CONSTANT)
  /// True if the arrival or the departure is animated.
  Q_PROPERTY(bool isAnimated READ isAnimated NOTIFY stateChanged)
  /// True if the screen was removed and stays only until its animation has ended.
  Q_PROPERTY(bool isLeaving READ isLeaving NOTIFY stateChanged)
  /// True for the uppermost screen that is not leaving.
  Q_PROPERTY(bool isTop READ isTop NOTIFY stateChanged)
  /// True if a screen above hides this one completely.
  Q_PROPERTY(bool isCovered READ isCovered NOTIFY stateChanged)

 public:
  ScreenLayerBridge(ScreenBridge* screen, bool animated)
      : state{.isAnimated = animated, .hasArrived = !animated}, screen_(screen) {
    screen_->setParent(this);
  }

  ScreenBridge* screen() const { return screen_; }
  bool isAnimated() const { return state.isAnimated; }
  bool isLeaving() const { return state.isLeaving; }
  bool isTop() const { return state.isTop; }
  bool isCovered() const { return state.isCovered; }

  /// Changed by ScreenLayers, which emits `stateChanged` after all layers have been updated.
  struct {
    bool isAnimated;
    bool hasArrived;
    bool isLeaving = false;
    bool isTop = true;
    bool isCovered = false;
  } state;

 Q_SIGNALS:
  void stateChanged();

 private:
  ScreenBridge* const screen_;
};

}  // namespace orrelo::quick

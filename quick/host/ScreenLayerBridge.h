#pragma once

#include "quick/bridge/ScreenBridge.h"

namespace orrelo::quick {

/// A screen in its place among others.
class ScreenLayerBridge final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ScreenBridge* screen READ screen CONSTANT)
  /// It comes, or goes, before the user's eyes.
  Q_PROPERTY(bool isAnimated READ isAnimated NOTIFY stateChanged)
  /// It was taken away, and stays until it is out of sight.
  Q_PROPERTY(bool isLeaving READ isLeaving NOTIFY stateChanged)
  /// The uppermost of those that are to stay.
  Q_PROPERTY(bool isTop READ isTop NOTIFY stateChanged)
  /// Something above hides it altogether.
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

  /// Whoever changes it emits `stateChanged`, when all layers are as they are to be.
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

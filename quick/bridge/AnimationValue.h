#pragma once

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace orrelo {
struct Animation;
}

namespace orrelo::quick {

/// A core animation in the form that KitAnimation.qml plays. Times are in milliseconds.
class AnimationValue {
  Q_GADGET
  QML_ANONYMOUS
  Q_PROPERTY(double from MEMBER from CONSTANT)
  Q_PROPERTY(double to MEMBER to CONSTANT)
  Q_PROPERTY(int delay MEMBER delay CONSTANT)
  Q_PROPERTY(int duration MEMBER duration CONSTANT)
  /// The format is that of QML's `easing.bezierCurve`.
  Q_PROPERTY(QList<qreal> curve MEMBER curve CONSTANT)

 public:
  AnimationValue() = default;
  /// `unit` is the number of the core's units per QML unit; `from` and `to` are divided by it.
  explicit AnimationValue(const Animation& animation, double unit = 1.0);

  bool operator==(const AnimationValue&) const = default;

  double from = 0.0;
  double to = 0.0;
  int delay = 0;
  int duration = 0;
  QList<qreal> curve;
};

}  // namespace orrelo::quick

#pragma once

#include <QAnimationDriver>
#include <QVariantAnimation>

namespace orrelo::showroom {

/// The time of all animations of the process, for as long as it lives. It stands still between two frames, so
/// that what is looked at after a frame shows the same phase in every run.
class FrameClock final : public QAnimationDriver {
  Q_OBJECT

 public:
  FrameClock();
  ~FrameClock() override;

  /// Runs the event loop for the length of a frame, then lets the animations go on by as much.
  void next();
  /// Milliseconds.
  qint64 elapsed() const override { return elapsed_; }

 private:
  qint64 elapsed_ = 0;
  /// Keeps the driver in use: while only pauses run, Qt would time them by a clock of its own.
  QVariantAnimation endless_;
};

}  // namespace orrelo::showroom

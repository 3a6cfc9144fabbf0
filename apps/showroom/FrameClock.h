#pragma once

#include <QAnimationDriver>
#include <QVariantAnimation>

namespace orrelo::showroom {

/// Drives all animations of the process during its lifetime. Their time stands still between two frames, so
/// that a picture taken after a frame shows the same phase in every run.
class FrameClock final : public QAnimationDriver {
  Q_OBJECT

 public:
  FrameClock();
  ~FrameClock() override;

  /// Runs the event loop for the duration of a frame, then advances the animations by as much.
  void next();
  /// In milliseconds.
  qint64 elapsed() const override { return elapsed_; }

 private:
  qint64 elapsed_ = 0;
  /// Keeps the driver in use: Qt would time pauses by its own clock if nothing else ran.
  QVariantAnimation endless_;
};

}  // namespace orrelo::showroom

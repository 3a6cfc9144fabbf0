#pragma once

#include "platform/posix/PosixApplication.h"

#include <QObject>
#include <memory>

namespace orrelo::quick {

/// Tells the kit what becomes of the application: it is in the background while no window of it can be seen,
/// and its screen's scale is that of the primary one.
class QtApplication final : public QObject {
 public:
  explicit QtApplication(std::shared_ptr<PosixApplication> application, QObject* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void update();
  void followScreen();

  std::shared_ptr<PosixApplication> application_;
  QMetaObject::Connection scaleChange_;
  bool isInForeground_;
};

}  // namespace orrelo::quick

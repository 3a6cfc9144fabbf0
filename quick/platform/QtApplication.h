#pragma once

#include "platform/posix/PosixApplication.h"

#include <QObject>
#include <memory>

namespace orrelo::quick {

/// Reports the application's state to the kit: it is in the background while none of its windows is visible,
/// and its screen scale is that of the primary screen.
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

#pragma once

#include "viewkit/base/ViewController.h"

#include <QObject>
#include <memory>

class QQuickWindow;

namespace orrelo::quick {

/// A window of the host as the kit's screens know it. The window owns it.
class HostWindow final : public QObject {
 public:
  /// The one of this window, which is made where it is missing.
  static HostWindow& of(QQuickWindow& window);
  ~HostWindow() override;

  const std::shared_ptr<HostViewController>& screen() const { return screen_; }

 private:
  explicit HostWindow(QQuickWindow& window);

  /// The screens from the lowest that can be seen up.
  void appear();
  void disappear();

  std::shared_ptr<HostViewController> screen_ = std::make_shared<HostViewController>();
};

}  // namespace orrelo::quick

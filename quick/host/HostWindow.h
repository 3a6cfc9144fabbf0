#pragma once

#include "ui/NavigationController.h"

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
  /// The stack that lies on `screen`; null while the window has none.
  const std::shared_ptr<NavigationController>& navigation() const { return navigation_; }
  /// What contains all screens but those that are presented.
  std::shared_ptr<ViewController> root() const { return screen_->root(); }

  /// Gives the window a stack of its own, for good.
  void makeNavigation();

 private:
  explicit HostWindow(QQuickWindow& window);

  /// Makes every visible screen appear, from the lowest up. Screens that have appeared ignore it.
  void appear();
  void disappear();

  std::shared_ptr<HostViewController> screen_ = std::make_shared<HostViewController>();
  std::shared_ptr<NavigationController> navigation_;
};

}  // namespace orrelo::quick

#pragma once

#include "quick/bridge/Subscriptions.h"
#include "ui/NavigationController.h"

#include <QObject>
#include <memory>

class QQuickWindow;

namespace orrelo::quick {

/// The screens of one of the host's windows, which owns this object.
class HostWindow final : public QObject {
 public:
  /// The HostWindow of this window; created at the first call.
  static HostWindow& of(QQuickWindow& window);
  ~HostWindow() override;

  /// The host's screen in the window that has the user's focus; null if no window has the kit's screens.
  static std::shared_ptr<HostViewController> keyScreen();
  /// The window in which a screen is shown; null if it is not shown.
  static QQuickWindow* windowOf(const std::shared_ptr<ViewController>& screen);

  const std::shared_ptr<HostViewController>& screen() const { return screen_; }
  /// The stack whose lowest screen is `screen`; null while the window has none.
  const std::shared_ptr<NavigationController>& navigation() const { return navigation_; }
  /// The container of all screens that are not presented: the stack, or `screen` if there is none.
  std::shared_ptr<ViewController> root() const { return screen_->root(); }

  /// Called by the OrreloHost that draws the window's screens.
  void didGetHost() { hasHost_ = true; }
  /// Gives the window a stack, which cannot be removed again.
  void makeNavigation();

 private:
  explicit HostWindow(QQuickWindow& window);

  /// Makes all screens from the topmost full-screen one upwards appear. Screens that have already appeared
  /// ignore the call.
  void appear();
  void disappear();
  void explainMissingHost() const;

  std::shared_ptr<HostViewController> screen_ = std::make_shared<HostViewController>();
  std::shared_ptr<NavigationController> navigation_;
  bool hasHost_ = false;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick

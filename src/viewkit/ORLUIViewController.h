#pragma once

#include "ui/NavigationController.h"
#include "ui/ViewController.h"
#include "viewkit/ToastLayer.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// The kit's own bar at the top of a presented screen: a title between two places for buttons.
struct ModalTopBar {
  std::optional<std::string> title;
  /// In points; 0 if the bar is hidden.
  double height = 44.0;

  friend bool operator==(const ModalTopBar&, const ModalTopBar&) = default;
};

/// The base of the kit's full-page screens. A presented screen outside a navigation stack has its own top
/// bar. A screen inside a navigation stack changes the title style of its bar and restores it when it
/// disappears.
class ORRELO_EXPORT ORLUIViewController : public ViewController {
 public:
  void setTitle(const std::optional<std::string>& title) override;

  const ModalTopBar& modalTopBar() const { return modalTopBar_.value(); }
  reactive::Observable<reactive::Unit> modalTopBarChanges() const { return modalTopBar_.changes(); }
  /// The toasts, above all other content of the screen.
  const std::shared_ptr<ToastLayer> toastLayer = std::make_shared<ToastLayer>();

 protected:
  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;
  void viewDidDisappear(bool animated) override;

  /// Sets the bar's height to 0; it cannot be restored.
  void collapseTopBar();

 private:
  Followed<ModalTopBar> modalTopBar_;
  std::optional<NavigationController::TitleTextAttributes> navigationBarTitleTextAttributes_;
};

}  // namespace orrelo

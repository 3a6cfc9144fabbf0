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
  /// In points; 0 where the bar takes no room.
  double height = 44.0;

  friend bool operator==(const ModalTopBar&, const ModalTopBar&) = default;
};

/// The base of the kit's full-page screens. It has a bar of its own where the host gives none, and leaves the
/// host's bar as it found it.
class ORRELO_EXPORT ORLUIViewController : public ViewController {
 public:
  void setTitle(const std::optional<std::string>& title) override;

  const ModalTopBar& modalTopBar() const { return modalTopBar_.value(); }
  reactive::Observable<reactive::Unit> modalTopBarChanges() const { return modalTopBar_.changes(); }
  /// Over all that the screen shows.
  const std::shared_ptr<ToastLayer> toastLayer = std::make_shared<ToastLayer>();

 protected:
  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;
  void viewDidDisappear(bool animated) override;

  /// Takes the bar's room; there is no way to give it back.
  void collapseTopBar();

 private:
  Followed<ModalTopBar> modalTopBar_;
  std::optional<NavigationController::TitleTextAttributes> navigationBarTitleTextAttributes_;
};

}  // namespace orrelo

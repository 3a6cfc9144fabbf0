#pragma once

#include "ui/Transition.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

class NavigationController;

/// How a presented screen covers the presenting one. The values are those of the platform.
enum class ModalPresentationStyle {
  /// Covers everything; the screens beneath disappear.
  fullScreen = 0,
  /// The screens beneath stay visible and are not notified.
  overFullScreen = 5,
  /// Drawn as `overFullScreen`; the kit's screens always fill their window.
  overCurrentContext = 6
};

/// How a presented screen arrives and leaves when that is animated. The values are those of the platform.
enum class ModalTransitionStyle {
  /// Slides in from below.
  coverVertical = 0,
  /// Fades in.
  crossDissolve = 2
};

/// A screen. It is owned by the screen that contains or presents it, or by a window. Main thread.
///
/// A screen loads once, before it first appears. It appears and disappears together with its container.
class ORRELO_EXPORT ViewController : public std::enable_shared_from_this<ViewController> {
 public:
  ViewController() = default;
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;
  virtual ~ViewController() = default;

  /// The name of the class, by which a front selects the screen's look.
  virtual std::string_view kind() const = 0;

  const std::optional<std::string>& title() const { return title_.value(); }
  virtual void setTitle(const std::optional<std::string>& title) { title_.set(title); }
  reactive::Observable<reactive::Unit> titleChanges() const { return title_.changes(); }

  ModalPresentationStyle modalPresentationStyle = ModalPresentationStyle::fullScreen;
  ModalTransitionStyle modalTransitionStyle = ModalTransitionStyle::coverVertical;
  /// The window's transition in which the screen leaves; absent if it leaves in its own way.
  const std::optional<Transition>& transition() const { return transition_; }

  /// The container of this screen; null for a presented screen and for the root of a window.
  std::shared_ptr<ViewController> parent() const { return parent_.lock(); }
  /// The nearest navigation controller among the containers; null if there is none.
  std::shared_ptr<NavigationController> navigationController() const;
  /// The outermost container, or this screen if it has none.
  std::shared_ptr<ViewController> root();
  /// The screen that presents this screen or one of its containers.
  std::shared_ptr<ViewController> presentingViewController() const;
  const std::shared_ptr<ViewController>& presentedViewController() const { return presented_.value().screen; }
  /// The screen in front of the user, searched from this one through presented screens and visible children.
  std::shared_ptr<ViewController> topmost();

  struct Presented {
    std::shared_ptr<ViewController> screen;
    bool animated = false;

    friend bool operator==(const Presented&, const Presented&) = default;
  };
  /// The screen that this one presents, and whether the last change should be animated.
  const Presented& presented() const { return presented_.value(); }
  reactive::Observable<reactive::Unit> presentedChanges() const { return presented_.changes(); }

  /// Shows `screen` over this one. Returns false and logs a warning if this screen already presents another
  /// one or if `screen` cannot be added.
  bool present(const std::shared_ptr<ViewController>& screen, bool animated);
  /// Dismisses the screen that this one presents, or else this screen itself, with all screens above it.
  void dismiss(bool animated);
  /// Leaves the screen: pops the navigation stack, or else dismisses what was presented. Called for the back
  /// arrow, Escape and Back.
  virtual void close();
  /// True if `close` leads back to another screen.
  bool canClose() const;

  bool isViewLoaded() const { return isLoaded_; }
  void loadViewIfNeeded();
  bool isVisible() const { return isVisible_; }

  /// Called by containers and by the front of a window.
  void appear(bool animated);
  void disappear(bool animated);

 protected:
  virtual void viewDidLoad() {}
  virtual void viewWillAppear(bool) {}
  virtual void viewDidAppear(bool) {}
  virtual void viewWillDisappear(bool) {}
  virtual void viewDidDisappear(bool) {}
  /// The child that fills this screen, such as the top of a stack; null if the screen shows itself, with its
  /// children as parts.
  virtual std::shared_ptr<ViewController> visibleChild() const { return nullptr; }

  /// Adds `child` after the existing children and loads it. Children appear and disappear with this screen,
  /// in the order of adding. Returns false and logs a warning if `child` cannot be added.
  bool addChild(const std::shared_ptr<ViewController>& child);
  /// Does nothing if `child` was not added.
  void removeChild(const std::shared_ptr<ViewController>& child);

  /// True if `screen` is not contained or presented anywhere and is neither this screen nor one of those that
  /// contain or present it. Otherwise logs a warning.
  bool canAdd(const std::shared_ptr<ViewController>& screen) const;
  bool canPresent(const std::shared_ptr<ViewController>& screen);
  /// Adds a transition to the window for the following dismissal, which is then not animated itself.
  void setTransition(const Transition& transition) { transition_ = transition; }
  void adopt(const std::shared_ptr<ViewController>& child);
  static void release(const std::shared_ptr<ViewController>& child);

 private:
  /// The children that are visible while this screen is.
  std::vector<std::shared_ptr<ViewController>> shownChildren() const;
  void dismissPresented(bool animated);
  /// Removes the presented screen and all screens above it, from the top down.
  void dropPresented(bool animated);
  /// True if this screen or one presented above it is visible.
  bool isOnScreen() const;

  Followed<std::optional<std::string>> title_;
  Followed<Presented> presented_;
  std::vector<std::shared_ptr<ViewController>> children_;
  std::weak_ptr<ViewController> parent_;
  std::weak_ptr<ViewController> presenting_;
  std::optional<Transition> transition_;
  bool isLoaded_ = false;
  bool isVisible_ = false;
  /// True from `viewWillAppear` on; children that are added while the screen loads appear after it.
  bool showsChildren_ = false;
};

/// Represents a screen of the host, from which the kit's screens are presented. A front creates one for each
/// window of the host.
class ORRELO_EXPORT HostViewController final : public ViewController {
 public:
  std::string_view kind() const override { return "HostViewController"; }
};

}  // namespace orrelo

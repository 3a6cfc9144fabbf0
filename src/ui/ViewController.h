#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

class NavigationController;

/// How a presented screen lies over the one that presents it. The numbers are the platform's.
enum class ModalPresentationStyle {
  /// It covers everything; what lies beneath disappears.
  fullScreen = 0,
  /// What lies beneath shows through and takes no notice.
  overFullScreen = 5
};

/// A screen. It belongs to the screen that contains or presents it, or to a window. Main thread.
///
/// A screen loads once, before it first appears. It appears and disappears together with what contains it.
class ORRELO_EXPORT ViewController : public std::enable_shared_from_this<ViewController> {
 public:
  ViewController() = default;
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;
  virtual ~ViewController() = default;

  /// The name of the class; a front draws the screen by it.
  virtual std::string_view kind() const = 0;

  const std::optional<std::string>& title() const { return title_.value(); }
  virtual void setTitle(const std::optional<std::string>& title) { title_.set(title); }
  reactive::Observable<reactive::Unit> titleChanges() const { return title_.changes(); }

  ModalPresentationStyle modalPresentationStyle = ModalPresentationStyle::fullScreen;

  /// What contains this one; null for a presented screen and for a window's first.
  std::shared_ptr<ViewController> parent() const { return parent_.lock(); }
  /// The nearest navigation controller that contains it.
  std::shared_ptr<NavigationController> navigationController() const;
  /// The outermost that contains it; itself where nothing does.
  std::shared_ptr<ViewController> root();
  /// Who presents it or what contains it.
  std::shared_ptr<ViewController> presentingViewController() const;
  const std::shared_ptr<ViewController>& presentedViewController() const { return presented_.value().screen; }
  /// The screen that the user has before them, starting from this one.
  std::shared_ptr<ViewController> topmost();

  struct Presented {
    std::shared_ptr<ViewController> screen;
    bool animated = false;

    friend bool operator==(const Presented&, const Presented&) = default;
  };
  /// What it presents now.
  const Presented& presented() const { return presented_.value(); }
  reactive::Observable<reactive::Unit> presentedChanges() const { return presented_.changes(); }

  /// Shows `screen` over this one. Refused, with a log line, while it presents another: one at a time; or
  /// where `screen` cannot be added.
  bool present(const std::shared_ptr<ViewController>& screen, bool animated);
  /// Takes away what this one presents, or else itself from who presents it, and all that lies above.
  void dismiss(bool animated);
  /// Leaves the screen: back on its stack, or else away with what was presented. For the back arrow, Escape
  /// and Back.
  virtual void close();
  /// There is a screen that `close` leads back to.
  bool canClose() const;

  bool isViewLoaded() const { return isLoaded_; }
  void loadViewIfNeeded();
  bool isVisible() const { return isVisible_; }

  /// For containers and for the front of a window.
  void appear(bool animated);
  void disappear(bool animated);

 protected:
  virtual void viewDidLoad() {}
  virtual void viewWillAppear(bool) {}
  virtual void viewDidAppear(bool) {}
  virtual void viewWillDisappear(bool) {}
  virtual void viewDidDisappear(bool) {}
  /// The one of its children that stands before the user in its place; null where it shows itself, and its
  /// children as parts of it.
  virtual std::shared_ptr<ViewController> visibleChild() const { return nullptr; }

  /// Contains `child` beside those it contains already, and loads it. Children appear and disappear with this
  /// screen, in the order of adding. Refused, with a log line, where `child` cannot be added.
  bool addChild(const std::shared_ptr<ViewController>& child);
  /// Nothing where `child` was not added.
  void removeChild(const std::shared_ptr<ViewController>& child);

  /// It has a place nowhere yet, and is not among those that this one lies in or over. False with a log line.
  bool canAdd(const std::shared_ptr<ViewController>& screen) const;
  bool canPresent(const std::shared_ptr<ViewController>& screen);
  void adopt(const std::shared_ptr<ViewController>& child);
  static void release(const std::shared_ptr<ViewController>& child);

 private:
  /// Those of its children that are on the screen while this one is.
  std::vector<std::shared_ptr<ViewController>> shownChildren() const;
  void dismissPresented(bool animated);
  /// What is presented and all above it goes, from the uppermost down.
  void dropPresented(bool animated);
  /// It or what lies above it.
  bool isOnScreen() const;

  Followed<std::optional<std::string>> title_;
  Followed<Presented> presented_;
  std::vector<std::shared_ptr<ViewController>> children_;
  std::weak_ptr<ViewController> parent_;
  std::weak_ptr<ViewController> presenting_;
  bool isLoaded_ = false;
  bool isVisible_ = false;
};

/// A screen of the host's own, as the kit knows it: something to present from. A front makes one for each
/// window of the host.
class ORRELO_EXPORT HostViewController final : public ViewController {
 public:
  std::string_view kind() const override { return "HostViewController"; }
};

}  // namespace orrelo

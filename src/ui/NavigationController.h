#pragma once

#include "base/Color.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// A stack of screens under a navigation bar with a title and a back button. The last screen is visible.
class ORRELO_EXPORT NavigationController final : public ViewController {
 public:
  /// The style of the bar's title; absent for the front's default style.
  struct TitleTextAttributes {
    Color foregroundColor;

    friend bool operator==(const TitleTextAttributes&, const TitleTextAttributes&) = default;
  };

  struct State {
    /// The first is the root.
    std::vector<std::shared_ptr<ViewController>> viewControllers;
    bool isNavigationBarHidden = false;
    std::optional<TitleTextAttributes> titleTextAttributes;
    /// True if the front should animate the last change of the stack.
    bool animated = false;

    friend bool operator==(const State&, const State&) = default;
  };

  static std::shared_ptr<NavigationController> create(const std::shared_ptr<ViewController>& root);
  ~NavigationController() override;

  static constexpr std::string_view kindName = "NavigationController";
  std::string_view kind() const override { return kindName; }
  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  std::shared_ptr<ViewController> topViewController() const { return visibleChild(); }

  /// Does nothing and logs a warning if `screen` is null or already shown.
  void pushViewController(const std::shared_ptr<ViewController>& screen, bool animated);
  /// Removes and returns the top screen. Returns null if only the root is left, which stays.
  std::shared_ptr<ViewController> popViewController(bool animated);
  void setNavigationBarHidden(bool isHidden);
  void setTitleTextAttributes(const std::optional<TitleTextAttributes>& attributes);

 protected:
  std::shared_ptr<ViewController> visibleChild() const override;

 private:
  NavigationController() = default;
  /// Replaces the stack; its last screen replaces the visible one.
  void replaceTop(std::vector<std::shared_ptr<ViewController>> viewControllers, bool animated);

  Followed<State> state_;
};

}  // namespace orrelo

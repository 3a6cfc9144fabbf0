#pragma once

#include "base/Color.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// A stack of screens, the last of which is on the screen, under a bar with its title and the way back.
class ORRELO_EXPORT NavigationController final : public ViewController {
 public:
  /// How the bar writes the title; absent for the front's own way.
  struct TitleTextAttributes {
    Color foregroundColor;

    friend bool operator==(const TitleTextAttributes&, const TitleTextAttributes&) = default;
  };

  struct State {
    /// The first is the root.
    std::vector<std::shared_ptr<ViewController>> viewControllers;
    bool isNavigationBarHidden = false;
    std::optional<TitleTextAttributes> titleTextAttributes;
    /// Whether the last change of the stack is to be seen happening.
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

  /// Refused, with a log line, where `screen` is null or shown already.
  void pushViewController(const std::shared_ptr<ViewController>& screen, bool animated);
  /// The screen that went; null where only the root is left, which stays.
  std::shared_ptr<ViewController> popViewController(bool animated);
  void setNavigationBarHidden(bool isHidden);
  void setTitleTextAttributes(const std::optional<TitleTextAttributes>& attributes);

 protected:
  std::shared_ptr<ViewController> visibleChild() const override;

 private:
  NavigationController() = default;
  /// Puts the last of these onto the screen in place of the one that was.
  void replaceTop(std::vector<std::shared_ptr<ViewController>> viewControllers, bool animated);

  Followed<State> state_;
};

}  // namespace orrelo

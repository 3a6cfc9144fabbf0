#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace orrelo {

/// Screens side by side, one of which is on the screen.
class ORRELO_EXPORT TabBarController final : public ViewController {
 public:
  struct State {
    std::vector<std::shared_ptr<ViewController>> viewControllers;
    std::size_t selectedIndex = 0;

    friend bool operator==(const State&, const State&) = default;
  };

  /// The first is selected. A screen that is null, or shown already, is left out with a log line.
  static std::shared_ptr<TabBarController> create(
      const std::vector<std::shared_ptr<ViewController>>& viewControllers);
  ~TabBarController() override;

  std::string_view kind() const override { return "TabBarController"; }
  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }

  /// Null without screens.
  std::shared_ptr<ViewController> selectedViewController() const { return visibleChild(); }
  /// Refused, with a log line, where there is no such place.
  void select(std::size_t index);

 protected:
  std::shared_ptr<ViewController> visibleChild() const override;

 private:
  TabBarController() = default;

  Followed<State> state_;
};

}  // namespace orrelo

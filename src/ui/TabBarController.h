#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace orrelo {

/// A set of screens of which the selected one is visible.
class ORRELO_EXPORT TabBarController final : public ViewController {
 public:
  struct State {
    std::vector<std::shared_ptr<ViewController>> viewControllers;
    std::size_t selectedIndex = 0;

    friend bool operator==(const State&, const State&) = default;
  };

  /// Selects the first screen. Screens that are null or already shown are skipped with a warning in the log.
  static std::shared_ptr<TabBarController> create(
      const std::vector<std::shared_ptr<ViewController>>& viewControllers);
  ~TabBarController() override;

  std::string_view kind() const override { return "TabBarController"; }
  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }

  /// Null if there are no screens.
  std::shared_ptr<ViewController> selectedViewController() const { return visibleChild(); }
  /// Does nothing and logs a warning if the index is out of range.
  void select(std::size_t index);

 protected:
  std::shared_ptr<ViewController> visibleChild() const override;

 private:
  TabBarController() = default;

  Followed<State> state_;
};

}  // namespace orrelo

#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

#include <chrono>
#include <string>

namespace orrelo {

/// A button whose taps are throttled: the first tap in an interval passes at once, and the last one when the
/// interval ends.
class ORRELO_EXPORT RxButton final : public View {
 public:
  struct State {
    std::string title;
    bool isEnabled = true;

    friend bool operator==(const State&, const State&) = default;
  };

  explicit RxButton(std::string title, std::chrono::microseconds interval = std::chrono::seconds(2))
      : throttleInterval(interval), state({std::move(title)}) {}

  std::string_view kind() const override { return "RxButton"; }

  /// Does nothing while the button is disabled.
  void onTouchUpInside() const;
  /// The throttled taps, on the main thread. Each subscription has its own intervals.
  reactive::Observable<reactive::Unit> tap() const;

  const std::chrono::microseconds throttleInterval;
  Followed<State> state;

 private:
  reactive::PublishSubject<reactive::Unit> tap_;
};

}  // namespace orrelo

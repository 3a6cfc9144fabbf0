#pragma once

#include "reactive/Subjects.h"
#include "ui/Geometry.h"

#include <orrelo/Export.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// A part of a screen: its content and its behaviour. A front draws it with the look for its `kind` while it
/// belongs to a screen. Main thread.
class ORRELO_EXPORT View : public std::enable_shared_from_this<View> {
 public:
  View() = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  /// The name of the class, such as "CampaignCalendarView".
  virtual std::string_view kind() const = 0;

  /// The size that the front has laid out.
  Size size() const { return size_; }
  void setSize(Size size) {
    if (size == size_) return;
    size_ = size;
    layoutSubviews();
  }

  std::string accessibilityIdentifier;

 protected:
  /// Called after the size has changed.
  virtual void layoutSubviews() {}

 private:
  Size size_;
};

/// An observable state. Setting an equal state does nothing. Main thread.
template <class State>
class Followed {
 public:
  explicit Followed(State initial = {}) : state_(std::move(initial)) {}
  Followed(const Followed&) = delete;
  Followed& operator=(const Followed&) = delete;

  /// The reference stays valid and follows later changes.
  const State& value() const { return state_; }
  void set(State state) {
    if (state == state_) return;
    std::swap(state_, state);  // destroyed last, since a destructor may read the new state
    changes_.onNext({});
  }
  /// Applies `change` to a copy of the state and sets the result.
  template <class Change>
  void change(Change change) {
    auto state = state_;
    change(state);
    set(std::move(state));
  }
  /// Signals on subscription and after each change. Observers read the state themselves: if an observer
  /// changes it during a signal, another signal follows, and both see the later state.
  reactive::Observable<reactive::Unit> changes() const { return changes_.asObservable(); }

 private:
  State state_;
  reactive::BehaviorSubject<reactive::Unit> changes_{reactive::Unit()};
};

}  // namespace orrelo

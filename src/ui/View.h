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

/// A part of a screen: what it shows and does. A front draws it, by the look that `kind` names, for as long
/// as it is part of a screen. Main thread.
class ORRELO_EXPORT View : public std::enable_shared_from_this<View> {
 public:
  View() = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  /// "CampaignCalendarView": the name of the class.
  virtual std::string_view kind() const = 0;

  /// What the front reports: the size that the view has got.
  Size size() const { return size_; }
  void setSize(Size size) {
    if (size == size_) return;
    size_ = size;
    layoutSubviews();
  }

  std::string accessibilityIdentifier;

 protected:
  /// Lays out by the new size.
  virtual void layoutSubviews() {}

 private:
  Size size_;
};

/// A state that its owner changes and others follow; setting an equal one changes nothing. Main thread.
template <class State>
class Followed {
 public:
  explicit Followed(State initial = {}) : state_(std::move(initial)) {}
  Followed(const Followed&) = delete;
  Followed& operator=(const Followed&) = delete;

  /// The reference is to the state of the moment of reading, or to a later one.
  const State& value() const { return state_; }
  void set(State state) {
    if (state == state_) return;
    std::swap(state_, state);  // the former state goes last: what it held may ask for the new one
    changes_.onNext({});
  }
  /// Changes a copy in place, and sets that.
  template <class Change>
  void change(Change change) {
    auto state = state_;
    change(state);
    set(std::move(state));
  }
  /// Signals at once, then after each change. Whoever follows reads the state: a change from within a signal
  /// gives another signal, and both see the later state.
  reactive::Observable<reactive::Unit> changes() const { return changes_.asObservable(); }

 private:
  State state_;
  reactive::BehaviorSubject<reactive::Unit> changes_{reactive::Unit()};
};

}  // namespace orrelo

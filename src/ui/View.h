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
  Size size() const { return size_.value(); }
  void setSize(Size size) {
    if (size == size_.value()) return;
    size_.onNext(size);
    layoutSubviews();
  }
  reactive::Observable<Size> sizes() const { return size_.asObservable(); }

  std::string accessibilityIdentifier;

 protected:
  /// Lays out by the new size.
  virtual void layoutSubviews() {}

 private:
  reactive::BehaviorSubject<Size> size_{Size()};
};

/// A state that its owner changes and others follow; setting an equal one changes nothing.
template <class State>
class Followed {
 public:
  explicit Followed(State initial = {}) : subject_(std::move(initial)) {}

  State value() const { return subject_.value(); }
  void set(State state) {
    if (!(state == subject_.value())) subject_.onNext(std::move(state));
  }
  /// Changes a copy in place, and sets that.
  template <class Change>
  void change(Change change) {
    auto state = subject_.value();
    change(state);
    set(std::move(state));
  }
  /// The state now, then each change.
  reactive::Observable<State> stream() const { return subject_.asObservable(); }

 private:
  reactive::BehaviorSubject<State> subject_;
};

}  // namespace orrelo

#pragma once

#include "ui/Animation.h"
#include "ui/CampaignNavigator.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// A view in the host's own screens that leads to the kit's home. It is visible while a user is signed in.
class ORRELO_EXPORT CampaignEntryView : public View {
 public:
  struct State {
    /// The opacity after the last fade. At 0 the view takes no taps and no focus.
    double alpha = 0.0;
    /// The last animation of the opacity; absent if the last change was not animated, as for a user who
    /// prefers reduced motion.
    std::optional<Animation> fade;
    /// The number of changes. The front starts the fade at each of them.
    int fadeCount = 0;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr std::chrono::milliseconds fadeDuration{1000};

  /// Before `Orrelo::initialize` the view is inert: it stays invisible, and a log line says so. Otherwise it
  /// is visible from the start if a user is signed in, and follows each later change of the user.
  static std::shared_ptr<CampaignEntryView> create();

  std::string_view kind() const override { return "CampaignEntryView"; }
  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }

  /// Called for a tap on one of the host's views. Opens home over the topmost screen above `root`, the
  /// outermost screen of the window; null for the key window.
  void orlHandleTapGesture(const std::shared_ptr<ViewController>& root) const;

  /// The name in the events of this view. The view reports no events while it is absent.
  std::optional<std::string> entryName;

 protected:
  CampaignEntryView() = default;

  /// Follows the user. Returns false if the kit is not initialized.
  bool start();

  reactive::DisposeBag disposeBag_;

 private:
  void setSignedIn(bool isSignedIn);
  void setAlpha(double alpha, bool animated);

  std::shared_ptr<CampaignNavigator> navigator_;
  Followed<State> state_;
};

}  // namespace orrelo

#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// A web page in an area of fixed size, which stays empty if the page fails or no browser is available. The
/// page may run scripts and open windows. The front's browser reports its progress and asks for permissions.
class ORRELO_EXPORT WebView final : public View {
 public:
  static constexpr std::chrono::seconds timeout{60};
  /// The maximum number of windows that a page may open without a user gesture.
  static constexpr int maximumPopups = 1;
  /// Repeated requests for the same window within this time count as one double click.
  static constexpr std::chrono::milliseconds doubleClickInterval{500};

  enum class State {
    loading,
    /// The received part of the page is shown.
    shown,
    /// The page has failed or may not be loaded. This state is final.
    empty,
  };

  WebView(Url page, std::optional<double> points, double pointsHigh);

  static constexpr std::string_view kindName = "WebView";
  std::string_view kind() const override { return kindName; }

  /// Starts the timeout of the first load. Reports about later navigations in the same view have no effect.
  void didStart();
  /// The first data has arrived. It is shown even if the load does not finish before the timeout.
  void didReceive();
  void didFinish(bool succeeded);
  /// The page's process has ended. May be called at any time.
  void processDidEnd();
  /// True if the first load has taken too long; the front then stops it.
  bool hasTimedOut() const { return hasTimedOut_; }

  /// True if the page, or a frame in it, may navigate to a URL with this scheme.
  static bool mayGoTo(std::string_view scheme, bool isFrame);
  /// Opens a window requested by the page with the platform's default handler. `hasUserGesture` is true if
  /// the user has caused the request.
  void openWindow(std::string_view address, bool hasUserGesture);

  const Url url;
  /// In points; absent for the full width of the stack.
  const std::optional<double> width;
  const double height;

  Followed<State> state;

 private:
  bool isLoading() const { return state.value() == State::loading; }

  bool hasReceived_ = false;
  bool hasTimedOut_ = false;
  int popupCount_ = 0;
  std::string lastWindow_;
  std::chrono::microseconds lastWindowAt_{0};
};

}  // namespace orrelo

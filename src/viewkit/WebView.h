#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// A web page in a place of fixed size, which stays empty where the page fails or no browser is at hand. The
/// page may run scripts and open windows by them. A browser says how its load goes and asks what it may do.
class ORRELO_EXPORT WebView final : public View {
 public:
  static constexpr std::chrono::seconds timeout{60};
  /// Of a page's windows, those that nobody has pressed anything for.
  static constexpr int maximumUnaskedWindows = 1;
  /// Within this the same window again is a second press of the one wish.
  static constexpr std::chrono::milliseconds doubleClick{500};

  enum class State {
    loading,
    /// What has come is shown; a load that goes on is to be stopped.
    shown,
    /// For good.
    empty,
  };

  WebView(Url page, std::optional<double> points, double pointsHigh);

  static constexpr std::string_view kindName = "WebView";
  std::string_view kind() const override { return kindName; }

  /// Starts the time-out of a browser's one load. What it says of later pages in the same place changes
  /// nothing.
  void didStart();
  /// The first of the document has come. It is shown if the rest does not come in time.
  void didReceive();
  void didFinish(bool succeeded);
  /// What ran the page has ended, at any time.
  void processDidEnd();

  /// Whether the page, or a frame in it, may be replaced by what has a URL of this scheme.
  static bool mayGoTo(std::string_view scheme, bool isFrame);
  /// Hands a window that the page opens to the machine.
  void openWindow(std::string_view address, bool isAskedFor);

  const Url url;
  /// In points; absent where the stack gives it.
  const std::optional<double> width;
  const double height;

  Followed<State> state;

 private:
  bool isLoading() const { return state.value() == State::loading; }

  bool hasReceived_ = false;
  int unaskedWindows_ = 0;
  std::string lastWindow_;
  std::chrono::microseconds lastWindowAt_{0};
};

}  // namespace orrelo

#pragma once

#include "ui/Transition.h"
#include "ui/ViewController.h"
#include "viewkit/WebView.h"

#include <orrelo/EventValue.h>
#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// A full screen with the page of the service where points are exchanged. The page closes the screen with a
/// script message. A page that fails leaves the screen white, with the indicator as it was, so that the user
/// can still leave. Main thread.
class ORRELO_EXPORT ExternalPointExchangeViewController final : public ViewController {
 public:
  /// The name of the handler for the page's script messages.
  static constexpr std::string_view handlerName = "Native";
  static constexpr Transition swipeTransition{.type = Transition::Type::reveal,
                                              .subtype = Transition::Subtype::fromLeft,
                                              .duration = std::chrono::milliseconds(200),
                                              .curve = Animation::Curve::easeInOut};

  explicit ExternalPointExchangeViewController(std::string landingPage);

  static constexpr std::string_view kindName = "ExternalPointExchangeViewController";
  std::string_view kind() const override { return kindName; }

  const std::string landingUrl;
  /// The page for the user who is signed in when the screen loads. Null before that, and if the landing URL
  /// is not a web page's.
  const std::shared_ptr<WebView>& webView() const { return webView_; }
  /// True while the activity indicator turns.
  Followed<bool> isIndicatorAnimating{true};

  /// Called when a navigation begins, whenever data has arrived, and when a navigation has succeeded. The
  /// first data of a navigation start the indicator. A failed navigation is deliberately not reported and
  /// leaves the indicator as it is.
  void didStartNavigation() { awaitsData_ = true; }
  void didReceiveData();
  void didFinishNavigation();
  /// The text "close" leaves the screen; everything else is ignored.
  void didReceiveScriptMessage(const EventValue& body);
  /// Called for a swipe to the right and for Back. Returns true if the front has to go back in the page's
  /// history; otherwise the screen leaves with `swipeTransition`.
  bool onWebViewSwipeRight(bool canGoBack);
  /// Called by a front that has no browser engine; `remedy` says what the host has to do.
  void didFindNoBrowser(std::string_view remedy) const;

  void close() override { leave(true); }

 protected:
  void viewDidLoad() override;

 private:
  /// Dismisses this screen and those above it; does nothing if it has been dismissed.
  void leave(bool animated);

  std::shared_ptr<WebView> webView_;
  bool awaitsData_ = false;
};

}  // namespace orrelo

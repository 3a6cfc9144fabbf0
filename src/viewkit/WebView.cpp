#include "viewkit/WebView.h"

#include "base/Ascii.h"
#include "platform/http/HttpUrl.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>
#include <orrelo/platform/Clock.h>

#include <memory>
#include <utility>

namespace orrelo {

WebView::WebView(Url page, std::optional<double> points, double pointsHigh)
    : url(std::move(page)),
      width(points),
      height(pointsHigh),
      // The service may only open web pages, not local files or other URL schemes.
      state(isHttp(url) ? State::loading : State::empty) {}

void WebView::didStart() {
  const auto weak = std::weak_ptr(std::static_pointer_cast<WebView>(shared_from_this()));
  Platform::current().mainLoop->postAfter(timeout, [weak] {
    const auto view = weak.lock();
    if (!view || !view->isLoading()) return;
    view->hasTimedOut_ = true;
    view->state.set(view->hasReceived_ ? State::shown : State::empty);
  });
}

void WebView::didReceive() {
  hasReceived_ = true;
}

void WebView::didFinish(bool succeeded) {
  if (isLoading()) state.set(succeeded ? State::shown : State::empty);
}

void WebView::processDidEnd() {
  state.set(State::empty);
}

bool WebView::mayGoTo(std::string_view scheme, bool isFrame) {
  const auto name = ascii::lowercased(scheme);
  return name == "http" || name == "https" ||
         (isFrame && (name == "about" || name == "data" || name == "blob"));
}

void WebView::openWindow(std::string_view address, bool hasUserGesture) {
  const auto window = Url::parse(address);
  if (!window || !isHttp(*window)) return;
  const auto now = Platform::current().clock->steady();
  const bool isRepeated = address == lastWindow_ && now - lastWindowAt_ < doubleClickInterval;
  lastWindow_ = address;
  lastWindowAt_ = now;
  if (isRepeated) return;
  if (!hasUserGesture && popupCount_++ >= maximumPopups) return;
  const auto& application = Platform::current().application;
  if (application->canOpen(*window)) application->open(*window);
}

}  // namespace orrelo

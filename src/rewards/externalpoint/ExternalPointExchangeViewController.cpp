#include "rewards/externalpoint/ExternalPointExchangeViewController.h"

#include "base/Ascii.h"
#include "base/explain.h"
#include "model/UserManager.h"
#include "platform/http/HttpUrl.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace orrelo {
namespace {

bool isUnreserved(char c) {
  return ascii::isAlphanumeric(c) || std::string_view("-._~").find(c) != std::string_view::npos;
}

// The landing page with the user as its only query item, which has no "=" if nobody is signed in.
std::optional<Url> pageOf(const std::string& landingUrl, const std::optional<std::string>& userId) {
  const auto landing = Url::parse(landingUrl);
  if (!landing || !isHttp(*landing)) return std::nullopt;
  auto page = landingUrl.substr(0, std::min(landingUrl.find_first_of("?#"), landingUrl.size())) + "?userID";
  if (userId) page += "=" + ascii::percentEncoded(*userId, isUnreserved);
  if (const auto fragment = landing->fragment()) page += "#" + std::string(*fragment);
  return Url::parse(page);
}

}  // namespace

ExternalPointExchangeViewController::ExternalPointExchangeViewController(std::string landingPage)
    : landingUrl(std::move(landingPage)) {
  modalPresentationStyle = ModalPresentationStyle::fullScreen;
  modalTransitionStyle = ModalTransitionStyle::crossDissolve;
}

void ExternalPointExchangeViewController::viewDidLoad() {
  // The page fills the screen, whatever its size.
  if (const auto page = pageOf(landingUrl, currentUserId())) {
    webView_ = std::make_shared<WebView>(*page, std::nullopt, 0.0);
  }
}

void ExternalPointExchangeViewController::didReceiveData() {
  if (std::exchange(awaitsData_, false)) isIndicatorAnimating.set(true);
}

void ExternalPointExchangeViewController::didFinishNavigation() {
  awaitsData_ = false;
  isIndicatorAnimating.set(false);
}

void ExternalPointExchangeViewController::didReceiveScriptMessage(const EventValue& body) {
  const auto* const text = std::get_if<std::string>(&body.variant());
  if (text != nullptr && *text == "close") close();
}

bool ExternalPointExchangeViewController::onWebViewSwipeRight(bool canGoBack) {
  if (canGoBack) return true;
  setTransition(swipeTransition);
  leave(false);
  return false;
}

void ExternalPointExchangeViewController::didFindNoBrowser(std::string_view remedy) const {
  explain(ExplanationLevel::error, [&] {
    return std::string(kindName) + " stays empty without a browser engine: " + std::string(remedy);
  });
}

void ExternalPointExchangeViewController::leave(bool animated) {
  const auto keep = shared_from_this();
  if (const auto presenting = presentingViewController()) presenting->dismiss(animated);
}

}  // namespace orrelo

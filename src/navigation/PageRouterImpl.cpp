#include "navigation/PageRouterImpl.h"

#include "base/Logger.h"
#include "platform/Application.h"

#include <orrelo/Platform.h>

namespace orrelo {

void PageRouterImpl::route(const std::shared_ptr<ViewController>& from, const Page& page) {
  if (const auto* const link = std::get_if<Page::DeepLink>(&page.variant())) return open(link->url);
  if (const auto* const campaign = std::get_if<Page::Campaign>(&page.variant())) {
    return destinations_.showCampaign(campaign->id, from);
  }
  if (page == Page::Fixed::home) return destinations_.showHome(from);
  if (page == Page::Fixed::unknown) {
    return log(LogLevel::ERROR, "Route to Unknown Page. Check Orrelo SDK version");
  }
  routeToFeature(from, page);
}

void PageRouterImpl::open(const Url& url) const {
  const auto& application = Platform::current().application;
  if (application->canOpen(url)) application->open(url);
}

void PageRouterImpl::routeToFeature(const std::shared_ptr<ViewController>& from, const Page& page) const {
  const auto router = runningRouter(std::get<Page::Fixed>(page.variant()));
  if (!router) return log(LogLevel::ERROR, "Orrelo is not initialized");
  const auto succeed = [name = std::string(page.caseName())] {
    log(LogLevel::DEBUG, [&] { return "page(" + name + ") route is succeed"; });
  };
  router->route(from, succeed,
                [](const Error& error) { log(LogLevel::ERROR, error.localizedDescription()); });
}

std::shared_ptr<Router> PageRouterImpl::runningRouter(Page::Fixed page) const {
  if (destinations_.isInitialized()) return destinations_.router(page);
  log(LogLevel::ERROR, "Orrelo SDK is not initialized. Call Orrelo.initialize() before route(with:page:)");
  return nullptr;
}

}  // namespace orrelo

#include "navigation/PageRouterImpl.h"

#include "base/Logger.h"
#include "ui/Router.h"
#include "ui/RunningKit.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>

namespace orrelo {
namespace {

void open(const Url& url) {
  const auto& application = Platform::current().application;
  if (application->canOpen(url)) application->open(url);
}

std::shared_ptr<Router> runningRouter(Page::Fixed page) {
  if (!RunningKit::isInitialized("route(with:page:)")) return nullptr;
  const auto kit = RunningKit::current();
  if (!kit) return nullptr;
  const auto found = kit->routers.find(page);
  return found != kit->routers.end() ? found->second : nullptr;
}

void routeToFeature(const std::shared_ptr<ViewController>& from, const Page& page) {
  const auto router = runningRouter(std::get<Page::Fixed>(page.variant()));
  if (!router) return log(LogLevel::ERROR, "Orrelo is not initialized");
  const auto succeed = [name = std::string(page.caseName())] {
    log(LogLevel::DEBUG, [&] { return "page(" + name + ") route is succeed"; });
  };
  router->route(from, succeed,
                [](const Error& error) { log(LogLevel::ERROR, error.localizedDescription()); });
}

}  // namespace

void PageRouterImpl::route(const std::shared_ptr<ViewController>& from, const Page& page) {
  if (const auto* const link = std::get_if<Page::DeepLink>(&page.variant())) return open(link->url);
  if (const auto* const campaign = std::get_if<Page::Campaign>(&page.variant())) {
    return RunningKit::showCampaign(campaign->id, from);
  }
  if (page == Page::Fixed::home) return RunningKit::showHome(from);
  if (page == Page::Fixed::unknown) {
    return log(LogLevel::ERROR, "Route to Unknown Page. Check Orrelo SDK version");
  }
  routeToFeature(from, page);
}

}  // namespace orrelo

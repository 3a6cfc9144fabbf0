#pragma once

#include "ui/Routing.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// What a route needs of the running kit. Each is asked when it is needed, and says itself where the kit is
/// not initialized.
struct Destinations {
  std::function<void(const std::string& id, const std::shared_ptr<ViewController>& with)> showCampaign;
  std::function<void(const std::shared_ptr<ViewController>& with)> showHome;
  /// Whether there is a running kit.
  std::function<bool()> isInitialized;
  /// The feature's; null where the running kit has none.
  std::function<std::shared_ptr<Router>(Page::Fixed page)> router;
};

class PageRouterImpl final : public PageRouter {
 public:
  explicit PageRouterImpl(Destinations destinations) : destinations_(std::move(destinations)) {}

  void route(const std::shared_ptr<ViewController>& from, const Page& page) override;

 private:
  void open(const Url& url) const;
  void routeToFeature(const std::shared_ptr<ViewController>& from, const Page& page) const;
  std::shared_ptr<Router> runningRouter(Page::Fixed page) const;

  Destinations destinations_;
};

}  // namespace orrelo

#pragma once

#include "ui/Routing.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// The functions of the running kit that routing needs. They are called at the time of routing and report
/// themselves if the kit is not initialized.
struct Destinations {
  std::function<void(const std::string& id, const std::shared_ptr<ViewController>& with)> showCampaign;
  std::function<void(const std::shared_ptr<ViewController>& with)> showHome;
  /// True if the kit is running.
  std::function<bool()> isInitialized;
  /// The router of the feature that owns the page; null if the running kit has none.
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
